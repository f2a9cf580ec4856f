#!/usr/bin/env bash
# Checks that every C++ file is formatted as .clang-format requires.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
mapfile -d '' files < <(find src tests tools -type f \( -name '*.cpp' -o -name '*.h' \) -print0)
if ! clang-format --dry-run -Werror "${files[@]}"; then
    echo "to mend: clang-format -i on the files named above"
    exit 1
fi
