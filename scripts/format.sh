#!/usr/bin/env bash
# Checks that every C++ file of the project is formatted as .clang-format says; with --fix,
# formats them in place. The check prints the files that differ and the command that fixes them.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
cd "$root"
mapfile -t files < <(git ls-files '*.cpp' '*.h')
if [[ ${1:-} == --fix ]]; then
  clang-format -i --style=file "${files[@]}"
  exit 0
fi
differ=()
for f in "${files[@]}"; do
  if ! clang-format --style=file --dry-run --Werror "$f" >/dev/null 2>&1; then
    differ+=("$f")
  fi
done
if ((${#differ[@]})); then
  printf '%s\n' "${differ[@]}"
  echo "${#differ[@]} file(s) differ from .clang-format; fix them with: ./scripts/format.sh --fix" >&2
  exit 1
fi
echo "all ${#files[@]} C++ files follow .clang-format"
