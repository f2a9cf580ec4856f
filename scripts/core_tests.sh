#!/usr/bin/env bash
# Runs the core's tests: there are many, and each takes less time than the start of a process. So all of them run in one
# process, and ctest gets the result of each.
#   core_tests.sh --all PROGRAM                  runs all, and writes the output of each into PROGRAM.results
#   core_tests.sh --end PROGRAM                  how that process ended
#   core_tests.sh PROGRAM --gtest_filter=TEST    the output of TEST there; fails if it did not pass
#   core_tests.sh PROGRAM ARGUMENT...            runs PROGRAM; so does a call with outdated results
# A Windows program is run with run_windows.sh.
set -euo pipefail

run() {
    if [[ $1 == *.exe ]]; then
        "${BASH_SOURCE[0]%/*}/run_windows.sh" "$@"
    else
        "$@"
    fi
}

# Splits the output of a run by test. A test that ends the process has no result line.
part_by_test() {
    awk -v folder="$1" '
        { sub(/\r$/, "") }
        /^\[ RUN      \] / { file = $0; sub(/^\[ RUN      \] /, "", file); gsub("/", "~", file); file = folder "/" file }
        file == "" { print > (folder "/process") }
        file != "" { print > file }
        file != "" && /\[       OK \] |\[  FAILED  \] |\[  SKIPPED \] / { close(file); file = "" }
    '
}

run_all() {
    local program=$1 results=$1.results status=0
    rm -rf "$results"
    mkdir "$results"
    set +o pipefail
    run "$program" --gtest_color=no </dev/null 2>&1 | part_by_test "$results"
    status=${PIPESTATUS[0]}
    printf '%s\n' "$status" >"$results/status"
    printf '%s tests in one process, which ended with %s\n' "$(find "$results" -type f -name '*.*' | wc -l)" "$status"
}

# 1 means that a test has failed; that test reports it.
report_end() {
    local results=$1.results status
    status=$(<"$results/status")
    if [[ -f $results/process ]]; then tail -n 40 "$results/process"; fi
    [[ $status == 0 ]] || { [[ $status == 1 ]] && grep -rqF '[  FAILED  ]' "$results" --include='*.*'; } ||
        { printf 'The process of the tests ended with %s.\n' "$status"; exit 1; }
}

report_test() {
    local program=$1 name=$2 file
    file=$program.results/${name//\//\~}
    if [[ ! -f $file ]]; then
        printf 'The process of the tests ended before this test.\n'
        exit 1
    fi
    cat "$file"
    grep -qE '\[       OK \] |\[  SKIPPED \] ' "$file"
}

case $1 in
    --all) run_all "$2" ;;
    --end) report_end "$2" ;;
    *)
        if [[ ${2:-} == --gtest_filter=* && $1.results/status -nt $1 ]]; then
            report_test "$1" "${2#--gtest_filter=}"
        else
            run "$@"
        fi
        ;;
esac
