#!/usr/bin/env bash
# Runs a Windows program of the tests: run_windows.sh PROGRAM ARGUMENT...
# Inside wine_test_env.sh it takes a desktop, with a Wine prefix and a home folder, that no other program of the tests
# has at that moment; the first to need one more makes it. Elsewhere it uses those of the caller.
set -euo pipefail
[[ -n ${QUILLO_DESKTOPS:-} ]] || exec wine "$@"
# shellcheck source=scripts/lib.sh
source "$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)/lib.sh"

# The lock is on descriptor 9, which nothing that the program leaves running may keep.
number=1
until exec 9>"$QUILLO_DESKTOPS/$number.lock" && flock -n 9; do
    ((number += 1))
done
use_test_desktop "$QUILLO_DESKTOPS/$number" 9>&-
status=0
wine "$@" 9>&- || status=$?
exit "$status"
