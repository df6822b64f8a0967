#!/usr/bin/env bash
# Installs what is missing, builds the benchmarks in Release, and runs them all (or those named:
# bench.sh Diff runs wz-bench-Diff*). Extra Google Benchmark flags go after `--`.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
"$root/scripts/setup.sh"
dir="$root/build-bench"
"$root/scripts/build.sh" "$dir" -DCMAKE_BUILD_TYPE=Release -DWZ_BUILD_BENCH=ON -DWZ_BUILD_TESTS=OFF -DWZ_BUILD_GALLERY=OFF
filter=()
names=()
while [ $# -gt 0 ]; do
  if [ "$1" = "--" ]; then shift; filter=("$@"); break; fi
  names+=("$1"); shift
done
[ ${#names[@]} -eq 0 ] && names=("")
for name in "${names[@]}"; do
  for program in "$dir"/bench/wz-bench-"$name"*; do
    [ -x "$program" ] || continue
    echo "== $(basename "$program")"
    "$program" "${filter[@]}"
  done
done
