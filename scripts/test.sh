#!/usr/bin/env bash
# The test command of the README: installs what is missing, builds, runs every test through CTest.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/setup.sh
scripts/build.sh
cd build && ctest --output-on-failure -j "$(nproc)" --timeout 300
