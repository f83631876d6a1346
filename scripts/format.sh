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
# One clang-format per batch of files, as many batches at once as there are cores; a file that
# differs is named in clang-format's complaint ("FILE:LINE:COLUMN: error: code should be ...").
mapfile -t differ < <(printf '%s\0' "${files[@]}" |
  xargs -0 -n 64 -P "$(nproc)" clang-format --style=file --dry-run --Werror 2>&1 |
  sed -n 's/^\([^:]*\):[0-9]*:[0-9]*: error: code should be clang-formatted.*/\1/p' | sort -u)
if ((${#differ[@]})); then
  printf '%s\n' "${differ[@]}"
  echo "${#differ[@]} file(s) differ from .clang-format; fix them with: ./scripts/format.sh --fix" >&2
  exit 1
fi
echo "all ${#files[@]} C++ files follow .clang-format"
