#!/usr/bin/env bash
# Builds one libFuzzer target and runs it for a while on a copy of its seed corpus.
#   fuzz.sh NAME SECONDS     e.g. fuzz.sh ChannelStrings 600
# NAME is fuzz/Fuzz<NAME>.cpp; seeds are in fuzz/corpus/NAME. New inputs go to the copy
# (build-fuzz/corpus/NAME), findings to build-fuzz/findings/NAME; the script fails on a finding.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
name=${1:?usage: fuzz.sh NAME SECONDS}
seconds=${2:?usage: fuzz.sh NAME SECONDS}

"$root/scripts/setup.sh" clang-14 libclang-rt-14-dev

dir="$root/build-fuzz"
if [ ! -f "$dir/CMakeCache.txt" ]; then
  CC=clang-14 CXX=clang++-14 cmake -S "$root" -B "$dir" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo \
    -DWZ_FUZZ=ON -DWZ_BUILD_TESTS=OFF -DWZ_BUILD_GALLERY=OFF
fi
cmake --build "$dir" -j2 --target "wz-fuzz-$name"

corpus="$dir/corpus/$name"
findings="$dir/findings/$name"
mkdir -p "$corpus" "$findings"
cp -n "$root/fuzz/corpus/$name"/* "$corpus"/ 2>/dev/null || true
export ASAN_OPTIONS=detect_leaks=1:abort_on_error=1
export UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1
# libFuzzer exits non-zero on a crash, a leak or a broken property, with the input in $findings.
"$dir/fuzz/wz-fuzz-$name" -max_total_time="$seconds" -timeout=10 -rss_limit_mb=2048 \
  -artifact_prefix="$findings/" "$corpus"
