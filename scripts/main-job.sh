#!/usr/bin/env bash
# The main job of the README: installs what is missing, builds, writes the sample practice
# database, and merges the sample client letter (data/sample-letter.docx) over its active
# clients through clsWordMerge into out/client-letters.docx, then says where the letters are.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/setup.sh
scripts/build.sh
nvwm=build/src/cli/nvwordmerge
mkdir -p out
rm -f out/sample-practice.db out/client-letters.docx
"$nvwm" --version
"$nvwm" sample-db out/sample-practice.db
# The merge source database goes to out/work/Temp; earlier runs' are swept after each run.
"$nvwm" merge --db out/sample-practice.db --list-type company \
  --template data/sample-letter.docx --out out/client-letters.docx --working-folder out/work
echo "The client letters are in $(pwd)/out/client-letters.docx"
