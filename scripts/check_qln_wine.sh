#!/usr/bin/env bash
# Tests the native qln together with a Quillo under Wine: check_qln_wine.sh QLN, inside wine_test_env.sh
set -euo pipefail
# shellcheck source=scripts/lib.sh
source "$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)/lib.sh"
(($# == 1)) || die "usage: check_qln_wine.sh QLN"
qln=$1
probe=$win_build/tests/window_probe.exe
unset QUILLO_NOTES

await() {
    local deadline=$((SECONDS + 60))
    until "$@"; do
        ((SECONDS < deadline)) || return 1
        sleep 0.05
    done
}
shown() { timeout 60 wine "$probe" wait 60 2>/dev/null </dev/null | tr -d '\r' | grep -c '^note'; }
four_shown() { (($(shown) == 4)); }

wine_set 'HKCU\Software\Marrowind\Quillo' 'Shown Help' 4294967295 REG_DWORD
setsid wine "$win_build/quillo.exe" >/dev/null 2>&1 </dev/null &
timeout 90 wine "$probe" wait 60 >/dev/null 2>&1 </dev/null || die "Quillo did not come up"

await "$qln" path >/dev/null 2>&1 || die "qln does not find the notes folder: $("$qln" path 2>&1 || true)"
made=$("$qln" new 'made on Linux' --color blue 2>"$HOME/error") || die "new failed: $(cat "$HOME/error")"
[[ -f $made ]] || die "no file was made: $made"
[[ ! -s $HOME/error ]] || die "the running program was not told: $(cat "$HOME/error")"
(($(shown) == 1)) || die "the note is not on the screen"
"$qln" find LINUX | grep -q 'made on Linux' || die "the note is not found"
if "$qln" doctor --repair >/dev/null 2>&1; then die "the folder is mended while Quillo runs"; fi
printf 'from outside' >"$HOME/outside.txt"
"$qln" open "$HOME/outside.txt" || die "open failed"
(($(shown) == 2)) || die "the opened file is not on the screen"
[[ ! -e $HOME/outside.txt ]] || die "the opened file was not taken in"
"$qln" quit || die "quit failed"
timeout 90 wine "$probe" gone 60 >/dev/null 2>&1 </dev/null || die "Quillo has not ended"
"$qln" new 'for later' 2>&1 | grep -q 'next start' || die "a note for later is not announced as one"
QUILLO_EXE=$(windows_path "$win_build/quillo.exe") "$qln" new 'and now' --start >/dev/null 2>&1 || die "new --start failed"
await four_shown || die "$(shown) notes are on the screen, not four"
"$qln" quit || die "the second quit failed"
say "the native qln and Quillo understand each other"
