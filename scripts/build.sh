#!/usr/bin/env bash
# Configures and builds into build/ (Release with debug info), tests and benchmarks included.
set -euo pipefail
cd "$(dirname "$0")/.."
cmake -S . -B build -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DNVWM_BUILD_TESTS=ON -DNVWM_BUILD_BENCHMARKS=ON >/dev/null
cmake --build build -j "$(nproc)"
