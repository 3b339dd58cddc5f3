#!/usr/bin/env bash
# Installs the Debian packages the build needs, only those that are missing.
#   scripts/setup.sh              what the build and the tests need
#   scripts/setup.sh --sanitizers also clang and its runtimes (ASan, UBSan, libFuzzer)
set -euo pipefail
packages=(cmake ninja-build g++ pkg-config libsqlite3-dev libpugixml-dev libzip-dev zlib1g-dev libicu-dev
          libspdlog-dev libfmt-dev libcli11-dev libgtest-dev libgmock-dev libbenchmark-dev
          clang-format-14)
if [ "${1:-}" = "--sanitizers" ]; then
  packages+=(clang libclang-rt-14-dev)
fi
missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
if [ ${#missing[@]} -gt 0 ]; then
  echo "Installing: ${missing[*]}"
  sudo_cmd=""
  [ "$(id -u)" -eq 0 ] || sudo_cmd="sudo"
  $sudo_cmd apt-get update -qq
  DEBIAN_FRONTEND=noninteractive $sudo_cmd apt-get install -y -qq "${missing[@]}"
fi
