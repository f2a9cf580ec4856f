#!/usr/bin/env bash
# Builds everything and runs the tests: ./test.sh [unit|e2e]
#   unit   ring 1: the core on this machine, under sanitizers, and a short run of the fuzz targets
#   e2e    ring 3: the real program
# Without an argument: every ring, and the checks of the sources themselves.
set -euo pipefail
# shellcheck source=scripts/lib.sh
source "$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)/scripts/lib.sh"

# The virtual desktop sometimes loses a press of the mouse: an end-to-end test that fails is repeated, at most twice. More
# failures than this are real. No other test is repeated.
readonly repeats_allowed=6
# Most tests of windows wait about as long as they compute, so more run at a time than there are processors. Such a test takes
# four slots. The three slots beyond those are for what takes one: tests that only wait, and short checks.
readonly at_one_moment=$((4 * ${QUILLO_TEST_JOBS:-$(($(nproc) + 2))} + 3))

ring=${1:-all}
[[ $# -le 1 && $ring == @(all|unit|e2e) ]] || die "usage: ./test.sh [unit|e2e]"

stages=()
# stage NAME COMMAND...: runs the command and records its time.
stage() {
    local name=$1 began=$SECONDS status=0
    shift
    "$@" || status=$?
    stages+=("$(printf '%-28s %3d min %02d s' "$name" $(((SECONDS - began) / 60)) $(((SECONDS - began) % 60)))")
    return "$status"
}
print_stages() {
    printf '\nTime by stage\n'
    printf '  %s\n' "${stages[@]}"
    printf '  %-28s %3d min %02d s\n' "in all" $((SECONDS / 60)) $((SECONDS % 60))
}

all=$quillo_root/build/all
results=$all/results.xml
failed_log=$all/Testing/Temporary/LastTestsFailed.log

# run_tests RESULTS ARGUMENT...: over all trees, with one summary.
# shellcheck disable=SC2317  # called by stage
run_tests() {
    local into=$1
    shift
    rm -f "$failed_log"
    "${environment[@]}" ctest --test-dir "$all" --output-on-failure --no-tests=error --timeout 300 \
        -j "$at_one_moment" --output-junit "$into" --test-output-size-passed 65536 "$@" </dev/null
}

# Repeats the failed tests if they are only a few end-to-end tests; fails if they fail twice more.
# shellcheck disable=SC2317  # called by stage
repeat_failed() {
    local failed
    [[ -s $failed_log ]] || return 1
    mapfile -t failed < <(cut -d: -f2- "$failed_log")
    printf '\n%d failed in the first run:\n' "${#failed[@]}"
    printf '  %s\n' "${failed[@]}"
    if grep -qv '^e2e\.' <<<"$(printf '%s\n' "${failed[@]}")"; then
        printf 'Only end-to-end tests are repeated.\n'
        return 1
    fi
    if ((${#failed[@]} > repeats_allowed)); then
        printf 'More than %d are not repeated.\n' "$repeats_allowed"
        return 1
    fi
    cp "$failed_log" "$all/repeated.log"
    local name expression=
    for name in "${failed[@]}"; do expression+="${expression:+|}^${name//./\\.}\$"; done
    run_tests "$all/results-repeated.xml" -R "$expression" --repeat until-pass:2
}

# Tests of the first two rings share processes; alone each starts one (scripts/run_together.sh).
export QUILLO_TESTS_TOGETHER=yes

ensure_packages "${test_packages[@]}"

trees=()
selection=()
environment=()
if [[ $ring != e2e ]]; then
    stage "build, native" build_preset native-debug all
    trees+=("$quillo_root/build/native-debug")
fi
if [[ $ring != unit ]]; then
    stage "build, Windows" build_preset windows-x64 all
    trees+=("$win_build")
    environment=("$quillo_root/scripts/wine_test_env.sh")
fi
[[ $ring == unit ]] && selection=(-L '^(unit|fuzz)$')
[[ $ring == e2e ]] && selection=(-L '^e2e$')

mkdir -p "$all"
printf 'subdirs("%s")\n' "${trees[@]}" >"$all/CTestTestfile.cmake"
rm -f "$results" "$all/results-repeated.xml" "$all/repeated.log"

compiling=
trap '[[ -z $compiling ]] || kill "$compiling" 2>/dev/null || true' EXIT
if [[ $ring == all ]]; then
    # Only compiled, to detect 64-bit assumptions. The tests mostly wait and leave time for it.
    build_preset windows-x86 quillo &
    compiling=$!
    renice -n 10 -p "$compiling" >/dev/null
fi

status=0
stage "tests" run_tests "$results" "${selection[@]}" || status=$?
repeated=0
if ((status != 0)); then
    status=0
    stage "tests repeated" repeat_failed || status=$?
    if [[ -f $all/repeated.log ]]; then repeated=$(wc -l <"$all/repeated.log"); fi
fi
if [[ -n $compiling ]]; then stage "build, 32-bit (the rest)" wait "$compiling" || status=$?; fi
print_stages
printf 'End-to-end tests that were repeated: %d (at most %d)\n' "$repeated" "$repeats_allowed"
# Every run of an end-to-end test counts.
all_results=()
for file in "$results" "$all/results-repeated.xml"; do
    if [[ -f $file ]]; then all_results+=("$file"); fi
done
/usr/bin/python3 "$quillo_root/scripts/check_repeats.py" "${all_results[@]}" || status=1
exit "$status"
