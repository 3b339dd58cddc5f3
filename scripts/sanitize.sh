#!/usr/bin/env bash
# Builds the whole test suite with clang, AddressSanitizer and UndefinedBehaviorSanitizer (any
# undefined behaviour stops the program) into build-sanitize/, with the fuzz targets beside it,
# and runs the suite there. The fuzzers can then run from the same build:
#   NVWM_FUZZ_BUILD_DIR=build-sanitize scripts/fuzz.sh 30
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/setup.sh --sanitizers
build=build-sanitize
launcher=()
command -v ccache >/dev/null && launcher=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache)
cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo \
      -DCMAKE_C_COMPILER=clang -DCMAKE_CXX_COMPILER=clang++ "${launcher[@]}" \
      -DNVWM_BUILD_TESTS=ON -DNVWM_BUILD_BENCHMARKS=OFF -DNVWM_BUILD_FUZZERS=ON >/dev/null
cmake --build "$build" -j "$(nproc)"
export ASAN_OPTIONS="${ASAN_OPTIONS:-detect_leaks=1:strict_string_checks=1}"
export UBSAN_OPTIONS="${UBSAN_OPTIONS:-print_stacktrace=1}"
cd "$build" && ctest --output-on-failure -j "$(nproc)" --timeout 600
