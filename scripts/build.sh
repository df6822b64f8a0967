#!/usr/bin/env bash
# Configures and builds into a build folder. Usage: build.sh BUILD_DIR [extra cmake options...]
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
dir=$1; shift
cmake -S "$root" -B "$dir" -G Ninja "$@" >/dev/null
cmake --build "$dir" -j2
