#!/usr/bin/env bash
# The main job of the README: installs what is missing, builds, writes the sample practice
# database, lists its clients and the letter fields, and merges the sample client letter over its companies into out/client-letters.docx.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/setup.sh
scripts/build.sh
nvwm=build/src/cli/nvwordmerge
mkdir -p out
rm -f out/sample-practice.db out/client-letters.docx
"$nvwm" --version
"$nvwm" sample-db out/sample-practice.db
echo "Clients in Ontario:"
"$nvwm" sql --db out/sample-practice.db \
  "SELECT CompanyName, City, PostalCode FROM Companies WHERE Province = 'Ontario' ORDER BY CompanyName;"
echo "Merge fields a client letter may use (first 12 of the catalogue):"
"$nvwm" fields --list-type 1 --db out/sample-practice.db > out/letter-fields.tsv
head -n 12 out/letter-fields.tsv
"$nvwm" docx-merge --template data/sample-letter.docx --data out/sample-practice.db \
  --table Companies --out out/client-letters.docx
