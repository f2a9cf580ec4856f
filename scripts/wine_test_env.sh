#!/usr/bin/env bash
# Runs a command with everything that a Windows test program needs: wine_test_env.sh COMMAND...
# A throwaway home folder, a throwaway Wine prefix with one shared virtual desktop of its own, a virtual X server, and
# a resident program that keeps the desktop's services warm. All of it is gone afterwards.
# QUILLO_BUILD_DIR names another build tree than build/windows-x64.
set -euo pipefail
# shellcheck source=scripts/lib.sh
source "$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)/lib.sh"
(($#)) || die "usage: wine_test_env.sh COMMAND..."

probe=$win_build/tests/window_probe.exe
[[ -f $probe ]] || die "$probe is missing: build the target window_probe first"

ensure_template
work=$(mktemp -d "${TMPDIR:-/tmp}/quillo-test.XXXXXX")
state=$work/desktop.state
export WINEPREFIX=$work/wine
# shellcheck disable=SC2317  # called by the trap
clean_up() {
    timeout 60 wineserver -k >/dev/null 2>&1 || true
    stop_desktop "$state"
    rm -rf "$work"
}
trap clean_up EXIT
trap 'exit 130' INT TERM

# What runs inside may need a desktop of its own, made from the same template.
export QUILLO_CACHE_DIR=$cache_dir
mkdir -p "$work/home/.local/share"
clone_prefix "$WINEPREFIX"
unset XDG_DATA_HOME XDG_CONFIG_HOME XDG_CACHE_HOME WAYLAND_DISPLAY
export HOME=$work/home
# The dates, numbers and code page that the tests expect.
unset LANG LANGUAGE LC_CTYPE LC_NUMERIC LC_TIME LC_MESSAGES
export LC_ALL=C.UTF-8
wine_environment
start_xserver "$state" 1280x800x24
wine_set 'HKCU\Software\Wine\Explorer' Desktop Quillo
wine_set 'HKCU\Software\Wine\Explorer\Desktops' Quillo 1280x800
# The resident program comes first and with its streams detached: what it starts inherits them, and a reader of the
# tests' output would otherwise wait for ever.
setsid wine "$probe" stay >/dev/null 2>&1 </dev/null &
deadline=$((SECONDS + 60))
until [[ -n $(prefix_pids "$WINEPREFIX" window_probe.ex) ]] &&
    timeout 20 xwininfo -root -tree 2>/dev/null | grep -q 'Quillo - Wine desktop'; do
    ((SECONDS < deadline)) || die "the Wine desktop of the tests did not come up on $DISPLAY"
    sleep 0.05
done

# Without the keyboard on the desktop, no window in it gets a key.
xdotool search --name 'Quillo - Wine desktop' windowfocus >/dev/null 2>&1 || true

status=0
QUILLO_EXE=$(windows_path "$win_build/quillo.exe") "$@" || status=$?
exit "$status"
