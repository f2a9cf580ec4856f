#!/usr/bin/env bash
# Checks that shell scripts parse, and that the linter has no findings.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
scripts=(dev run.sh test.sh package.sh .ci/run packaging/*.sh scripts/*.sh)
for script in "${scripts[@]}"; do
    bash -n "$script"
done
shellcheck -x "${scripts[@]}"
