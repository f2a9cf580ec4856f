#!/usr/bin/env bash
# Runs many tests in a few processes: most take less time than the start of a process. ctest still gets the result of each.
#   run_together.sh --run PART/PARTS PROGRAM ARGUMENT...   runs one part of the tests, and records the output of each test;
#                                                          only deletes old records unless QUILLO_TESTS_TOGETHER is "yes"
#   run_together.sh --end PROGRAM                          how the processes of all parts ended
#   run_together.sh PROGRAM --gtest_filter=TEST            the recorded output of TEST; fails if it did not pass
#   run_together.sh PROGRAM ARGUMENT...                    runs PROGRAM; so does a call with outdated records
# The records are in PROGRAM.results, in a folder for each part. A Windows program is run with run_windows.sh.
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

run_part() {
    local part=${1%/*} parts=${1#*/} results=$2.results status=0
    if [[ ${QUILLO_TESTS_TOGETHER:-} != yes ]]; then
        # A developer who has chosen a few tests does not wait for all of them.
        rm -rf "$results"
        return 0
    fi
    shift
    mkdir -p "$results"
    # The records of another number of parts are outdated.
    find "$results" -mindepth 1 -maxdepth 1 ! -name "*-of-$parts" -exec rm -rf {} +
    results+=/$part-of-$parts
    rm -rf "$results"
    mkdir "$results"
    export GTEST_SHARD_INDEX=$((part - 1)) GTEST_TOTAL_SHARDS=$parts
    set +o pipefail
    run "$@" --gtest_color=no </dev/null 2>&1 | part_by_test "$results"
    status=${PIPESTATUS[0]}
    printf '%s\n' "$status" >"$results/status"
    printf '%s tests in one process, which ended with %s\n' "$(find "$results" -type f -name '*.*' | wc -l)" "$status"
}

# 1 means that a test has failed; that test reports it.
report_end() {
    local results status
    [[ -d $1.results ]] || return 0
    for results in "$1".results/*/; do
        status=$(<"$results/status")
        if [[ -f $results/process ]]; then tail -n 40 "$results/process"; fi
        [[ $status == 0 ]] || { [[ $status == 1 ]] && grep -rqF '[  FAILED  ]' "$results" --include='*.*'; } ||
            { printf 'The process of the tests in %s ended with %s.\n' "$results" "$status"; exit 1; }
    done
}

# Starts no other process: it runs for each of more than two thousand tests.
report_test() {
    local program=$1 record output
    for record in "$program".results/*/"${2//\//\~}"; do
        [[ -f $record ]] || break
        IFS= read -r -d '' output <"$record" || true
        printf '%s' "$output"
        [[ $output == *'[       OK ] '* || $output == *'[  SKIPPED ] '* ]]
        return
    done
    printf 'The process of the tests ended before this test.\n'
    return 1
}

# The records are of this program, and every part has ended.
records_are_new() {
    local results
    for results in "$1".results/*/; do
        [[ $results/status -nt $1 ]] || return 1
    done
}

case $1 in
    --run) run_part "${@:2}" ;;
    --end) report_end "$2" ;;
    *)
        if [[ ${2:-} == --gtest_filter=* ]] && records_are_new "$1"; then
            report_test "$1" "${2#--gtest_filter=}"
        else
            run "$@"
        fi
        ;;
esac
