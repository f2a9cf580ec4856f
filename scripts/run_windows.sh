#!/usr/bin/env bash
# Runs a Windows program of the tests: run_windows.sh PROGRAM ARGUMENT...
# With QUILLO_OWN_DESKTOP=1 on a desktop and in a Wine prefix of its own, otherwise in those of the caller.
set -euo pipefail
if [[ ${QUILLO_OWN_DESKTOP:-} == 1 ]]; then
    unset QUILLO_OWN_DESKTOP
    exec "$(dirname "${BASH_SOURCE[0]}")/wine_test_env.sh" wine "$@"
fi
exec wine "$@"
