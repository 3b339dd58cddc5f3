#!/usr/bin/env bash
# The test command of the README: installs what is missing, builds, checks the layout of the
# C++ files with clang-format 14, and runs every test through CTest. Fails if either fails.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/setup.sh
scripts/build.sh
format_status=0
scripts/check-format.sh || format_status=$?
(cd build && ctest --output-on-failure -j "$(nproc)" --timeout 300)
exit "$format_status"
