#!/usr/bin/env bash
# Formatting, include floors, clang-tidy.
set -euo pipefail
cd "$(dirname "$0")/.."

mapfile -t files < <(git ls-files --cached --others --exclude-standard -- '*.cpp' '*.h' '*.c' | sort -u)
clang-format --dry-run --Werror "${files[@]}"
python3 cmake/check_floors.py

cmake --preset release >/dev/null
printf '%s\n' "${files[@]}" | grep '^\(src\|tools\)/.*\.cpp$' |
    xargs -P "$(nproc)" -n 4 clang-tidy -p build/release --quiet --warnings-as-errors='*' --extra-arg=-Wno-unknown-warning-option 2>/dev/null
echo "lint: ${#files[@]} files are clean"
