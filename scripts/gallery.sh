#!/usr/bin/env bash
# Installs what is missing, builds, and runs the gallery (all scenes, or the ones named).
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
"$root/scripts/setup.sh"
"$root/scripts/build.sh" "$root/build" -DWZ_BUILD_TESTS=OFF -DWZ_BUILD_GALLERY=ON
"$root/build/gallery/wz-gallery" "$@"
