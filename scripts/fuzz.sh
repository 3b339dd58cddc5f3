#!/usr/bin/env bash
# Runs every fuzz target of fuzz/ for SECONDS each (60 unless given), one after the other:
#   scripts/fuzz.sh [SECONDS]
# Builds the fuzzers with clang into build-fuzz/ (libFuzzer, ASan, UBSan), writes the seed
# corpus with nvwm_make_corpus, adds the regression inputs to it, and keeps what each run
# learns in build-fuzz/corpus/<target>. A crash, a leak, undefined behaviour, a timeout (10 s
# for one input) or memory over 2 GB stops that target; its input is saved in
# build-fuzz/artifacts/<target>/ and the script exits 1 after the other targets have run.
set -euo pipefail
cd "$(dirname "$0")/.."
seconds="${1:-60}"
build="${NVWM_FUZZ_BUILD_DIR:-build-fuzz}"
targets=(docx_merge csv ado_filter jet_sql format text rtb_comment)

if [ ! -f "$build/CMakeCache.txt" ]; then
  launcher=()
  command -v ccache >/dev/null && launcher=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache)
  cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo \
        -DCMAKE_C_COMPILER=clang -DCMAKE_CXX_COMPILER=clang++ "${launcher[@]}" \
        -DNVWM_BUILD_TESTS=OFF -DNVWM_BUILD_BENCHMARKS=OFF -DNVWM_BUILD_FUZZERS=ON >/dev/null
fi
cmake --build "$build" -j "$(nproc)" --target nvwm_make_corpus "${targets[@]/%/_fuzzer}"

"$build/fuzz/nvwm_make_corpus" seeds "$build/seeds"
failed=()
for t in "${targets[@]}"; do
  mkdir -p "$build/corpus/$t" "$build/artifacts/$t"
  cp -n fuzz/regressions/"$t"/* "$build/seeds/$t/" 2>/dev/null || true
  log="$build/artifacts/$t/last-run.log"
  echo "== $t: ${seconds} s"
  if "$build/fuzz/${t}_fuzzer" -max_total_time="$seconds" -timeout=10 -rss_limit_mb=2048 \
       -print_final_stats=1 -artifact_prefix="$build/artifacts/$t/" \
       "$build/corpus/$t" "$build/seeds/$t" >"$log" 2>&1; then
    runs=$(grep -m1 'stat::number_of_executed_units' "$log" | awk '{print $2}')
    echo "   ${runs:-?} inputs run, no failure (corpus: $(ls "$build/corpus/$t" | wc -l) inputs)"
  else
    echo "   FAILED: see $log"
    grep -m3 -E 'ERROR|SUMMARY|runtime error' "$log" | sed 's/^/   /' || true
    failed+=("$t")
  fi
done
if [ ${#failed[@]} -gt 0 ]; then
  echo "fuzz targets that failed: ${failed[*]}"
  exit 1
fi
