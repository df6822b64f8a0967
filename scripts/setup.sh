#!/usr/bin/env bash
# Installs the Debian packages the build needs, only those that are missing; packages named on
# the command line (setup.sh clang-14 ...) are installed the same way beside them.
set -euo pipefail

packages=(cmake ninja-build g++ pkg-config
          libicu-dev libxerces-c-dev libtsl-ordered-map-dev nlohmann-json3-dev
          libgtest-dev libgmock-dev libbenchmark-dev libdtl-dev "$@")

missing=()
for p in "${packages[@]}"; do
  if ! dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed"; then
    missing+=("$p")
  fi
done

if [ ${#missing[@]} -gt 0 ]; then
  echo "setup: installing ${missing[*]}"
  sudo_cmd=()
  [ "$(id -u)" -ne 0 ] && sudo_cmd=(sudo)
  "${sudo_cmd[@]}" apt-get update -qq
  DEBIAN_FRONTEND=noninteractive "${sudo_cmd[@]}" apt-get install -y -qq "${missing[@]}"
fi
