#!/usr/bin/env bash
# Runs a Windows program of the tests: run_windows.sh PROGRAM ARGUMENT...
# Inside wine_test_env.sh it uses a desktop, with a Wine prefix and a home folder, that no other test program uses at
# that moment; it creates another one if all are in use. Elsewhere it uses those of the caller.
set -euo pipefail
[[ -n ${QUILLO_DESKTOPS:-} ]] || exec wine "$@"
# shellcheck source=scripts/lib.sh
source "$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)/lib.sh"

# The lock is on descriptor 9, which must not stay open in processes that the program leaves running.
number=1
until exec 9>"$QUILLO_DESKTOPS/$number.lock" && flock -n 9; do
    ((number += 1))
done
use_test_desktop "$QUILLO_DESKTOPS/$number" 9>&-
# Wine sometimes starts nothing: a program that fails without any output has not run, and is started again.
output=$QUILLO_DESKTOPS/$number.output
for attempt in 1 2; do
    status=0
    wine "$@" >"$output" 2>&1 9>&- || status=$?
    if ((status == 0)) || [[ -s $output ]]; then break; fi
    if ((attempt == 1)); then printf 'run_windows.sh: %s did not start and is started once more\n' "${1##*/}"; fi
done
cat "$output"
exit "$status"
