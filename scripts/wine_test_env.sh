#!/usr/bin/env bash
# Runs a command with everything that a Windows test program needs: wine_test_env.sh COMMAND...
# A throwaway home folder, a throwaway Wine prefix with one shared virtual desktop of its own, a virtual X server, and
# a resident program that keeps the desktop's services warm. Programs that run_windows.sh starts in parallel get more of
# these. All of them are deleted afterwards.
# QUILLO_TEST_DPI is the resolution of its screen, if it is not 96 dots per inch.
# QUILLO_BUILD_DIR names a build tree other than build/windows-x64.
set -euo pipefail
# shellcheck source=scripts/lib.sh
source "$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)/lib.sh"
(($#)) || die "usage: wine_test_env.sh COMMAND..."

# The disks that the tests fill are mounted only for this run; the trap unmounts them however it ends.
if ((UID == 0)) && [[ -z ${QUILLO_OWN_MOUNTS:-} ]] && unshare --mount true 2>/dev/null; then
    QUILLO_OWN_MOUNTS=1 exec unshare --mount "$0" "$@"
fi

probe=$win_build/tests/window_probe.exe
[[ -f $probe ]] || die "$probe is missing: build the target window_probe first"

ensure_template
work=$(mktemp -d "${TMPDIR:-/tmp}/quillo-test.XXXXXX")
# shellcheck disable=SC2317  # called by the trap
clean_up() {
    local desktop
    for desktop in "$work"/*/; do
        WINEPREFIX=${desktop}wine timeout 60 wineserver -k >/dev/null 2>&1 || true
        stop_desktop "${desktop}desktop.state"
        remove_test_disks "${desktop%/}"
    done
    rm -rf "$work"
}
trap clean_up EXIT
trap 'exit 130' INT TERM

# A command inside may need a prefix of its own, made from the same template.
export QUILLO_CACHE_DIR=$cache_dir QUILLO_BUILD_DIR=$win_build
# The desktop is the one that the pictures of tests/golden were recorded on; another one is a fault.
export QUILLO_GOLDEN_REQUIRED=yes
unset XDG_DATA_HOME XDG_CONFIG_HOME XDG_CACHE_HOME WAYLAND_DISPLAY
# The dates, numbers and code page that the tests expect.
unset LANG LANGUAGE LC_CTYPE LC_NUMERIC LC_TIME LC_MESSAGES
export LC_ALL=C.UTF-8
wine_environment
use_test_desktop "$work/1"

status=0
QUILLO_DESKTOPS=$work QUILLO_EXE=$(windows_path "$win_build/quillo.exe") "$@" || status=$?
exit "$status"
