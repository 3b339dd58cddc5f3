#!/usr/bin/env bash
# The main job of the README: installs what is missing, builds, and runs the main job.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/setup.sh
scripts/build.sh
build/src/cli/nvwordmerge --version
build/src/cli/nvwordmerge self-check
