#!/usr/bin/env bash
# Builds everything and runs the tests: ./test.sh [unit|e2e]
#   unit   ring 1: the core on this machine, under sanitizers, and a short run of the fuzz targets
#   e2e    ring 3: the real program
# Without an argument: every ring, and the checks of the sources themselves.
set -euo pipefail
# shellcheck source=scripts/lib.sh
source "$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)/scripts/lib.sh"

ring=${1:-all}
[[ $# -le 1 && $ring == @(all|unit|e2e) ]] || die "usage: ./test.sh [unit|e2e]"

ensure_packages "${test_packages[@]}"

trees=()
selection=()
environment=()
if [[ $ring != e2e ]]; then
    build_preset native-debug all
    trees+=("$quillo_root/build/native-debug")
fi
if [[ $ring != unit ]]; then
    build_preset windows-x64 all
    trees+=("$win_build")
    environment=("$quillo_root/scripts/wine_test_env.sh")
fi
if [[ $ring == all ]]; then
    # Compiled only: that it stays free of 64-bit assumptions.
    build_preset windows-x86 quillo
fi
[[ $ring == unit ]] && selection=(-L '^(unit|fuzz)$')
[[ $ring == e2e ]] && selection=(-L '^e2e$')

# One run over all trees, and so one summary. The virtual desktop loses a press of the mouse now and then: a test that
# fails is looked at again, and one that fails three times has failed.
all=$quillo_root/build/all
mkdir -p "$all"
printf 'subdirs("%s")\n' "${trees[@]}" >"$all/CTestTestfile.cmake"
"${environment[@]}" ctest --test-dir "$all" --output-on-failure --no-tests=error --timeout 300 -j 4 \
    --repeat until-pass:3 "${selection[@]}" \
    --output-junit "$all/results.xml" </dev/null
