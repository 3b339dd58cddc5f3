#!/usr/bin/env bash
# Checks that every tracked C++ file reads as clang-format 14 writes it (.clang-format). Lists
# what differs and fails; `clang-format-14 -i FILE` fixes a file.
set -euo pipefail
cd "$(dirname "$0")/.."
format=$(command -v clang-format-14 || command -v clang-format || true)
if [ -z "$format" ] || ! "$format" --version | grep -q "version 14\."; then
  echo "check-format: clang-format 14 is needed (scripts/setup.sh installs it)" >&2
  exit 2
fi
if git rev-parse --is-inside-work-tree >/dev/null 2>&1; then
  mapfile -d '' files < <(git ls-files -z -- '*.cpp' '*.h')
else
  mapfile -d '' files < <(find src tests bench -type f \( -name '*.cpp' -o -name '*.h' \) -print0)
fi
failed=()
for f in "${files[@]}"; do
  "$format" --dry-run --Werror "$f" >/dev/null 2>&1 || failed+=("$f")
done
if [ ${#failed[@]} -gt 0 ]; then
  echo "check-format: these files differ from clang-format 14's layout:" >&2
  printf '  %s\n' "${failed[@]}" >&2
  exit 1
fi
echo "check-format: ${#files[@]} files as clang-format 14 writes them"
