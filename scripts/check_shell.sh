#!/usr/bin/env bash
# Shell scripts parse, and the linter has nothing to say.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
scripts=(dev run.sh test.sh package.sh .ci/run packaging/*.sh scripts/*.sh)
for script in "${scripts[@]}"; do
    bash -n "$script"
done
shellcheck -x "${scripts[@]}"
