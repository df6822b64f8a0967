#!/usr/bin/env bash
# Installs what is missing, builds, and runs every test.
#   test.sh              the normal build (build/)
#   test.sh --sanitize   the same tests under AddressSanitizer and UBSan (build-sanitize/)
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
"$root/scripts/setup.sh"
dir="$root/build"
opts=(-DWZ_BUILD_TESTS=ON -DWZ_BUILD_GALLERY=ON)
if [ "${1:-}" = "--sanitize" ]; then
  dir="$root/build-sanitize"
  opts+=(-DWZ_SANITIZE=ON -DCMAKE_BUILD_TYPE=Debug)
  export ASAN_OPTIONS=detect_leaks=1:abort_on_error=1
  export UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1
fi
"$root/scripts/build.sh" "$dir" "${opts[@]}"
ctest --test-dir "$dir" -j2 --output-on-failure
# The gallery is a program users run: it must run through every scene.
"$dir/gallery/wz-gallery" >/dev/null
