#!/usr/bin/env bash
# Checks that the reminder's sound reaches the sound system: check_alert_sound.sh QUILLO.EXE, inside wine_test_env.sh.
# The program runs with a note whose reminder is due, and a sound device that records instead of playing: sounds of all
# kinds are recorded, an empty setting and a missing file are silent, and no message box appears.
set -euo pipefail
# shellcheck source=scripts/lib.sh
source "$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)/lib.sh"
(($# == 1)) || die "usage: check_alert_sound.sh QUILLO.EXE"
quillo=$1
probe=$(dirname "$quillo")/tests/window_probe.exe
[[ -n ${WINEPREFIX:-} && -n ${DISPLAY:-} ]] || die "run it inside scripts/wine_test_env.sh"
command -v ffmpeg >/dev/null || die "ffmpeg is missing"

work=$(mktemp -d "${TMPDIR:-/tmp}/quillo-sound.XXXXXX")
recording=$work/recorded.raw
# shellcheck disable=SC2317  # called by the trap
clean_up() {
    timeout 20 wine "$quillo" /close >/dev/null 2>&1 || true
    timeout 20 wine reg delete 'HKCU\Software\Marrowind' /f >/dev/null 2>&1 || true
    rm -rf "$work" "$HOME/.asoundrc" "${notes:-$work}"
}
trap clean_up EXIT

# The sound is written to a file, at once and without a sound card.
cat >"$HOME/.asoundrc" <<END
pcm.!default { type file file "$recording" format raw slave.pcm null }
pcm.null { type null }
ctl.!default { type null }
END

# A file name with a blank and an accent, as users may have.
tone="$work/a tone é"
ffmpeg -v error -f lavfi -i sine=frequency=880:duration=1 -ar 44100 "$tone.wav"
cp "$tone.wav" "$tone in capitals.WAV"
ffmpeg -v error -i "$tone.wav" -c:a wmav2 "$tone.wma"
ffmpeg -v error -i "$tone.wav" -c:a libmp3lame "$tone.mp3"
printf 'no sound at all' >"$work/broken.mp3"

# heard: the number of samples that are not silent.
heard() {
    if [[ -f $recording ]]; then tr -d '\0' <"$recording" | wc -c; else echo 0; fi
}

notes=$(find "$WINEPREFIX/drive_c/users" -type d -path '*/AppData/Local' | head -n 1)/Marrowind/Notes
# alert_stands SECONDS
alert_stands() { timeout 90 wine "$probe" alert "$1" >/dev/null 2>&1; }

# remind SETTING: runs the program until the alert is shown.
remind() {
    local setting=$1
    rm -rf "$notes" "$recording"
    mkdir -p "$notes"
    printf 'Ring\r\n<quillo><reminder>#40000.5</reminder><appearance>False,False,1,1,1,0</appearance><nodelete></nodelete></quillo>' \
        >"$notes/note.qln"
    wine_set 'HKCU\Software\Marrowind\Quillo' 'Shown Help' 4294967295 REG_DWORD
    wine_set 'HKCU\Software\Marrowind\Quillo' Reminder "$setting"
    timeout 120 wine "$quillo" >/dev/null 2>&1 </dev/null &
    running=$!
    alert_stands 60 || die "no alert came with the sound '$setting'"
}

failures=0
# expect WHAT SETTING: WHAT is "sound" or "silence".
expect() {
    local what=$1 setting=$2 deadline samples result=silence
    remind "$setting"
    # A sound starts at once; silence must last until the sound would have been repeated.
    deadline=$((SECONDS + 13))
    while ((SECONDS < deadline)); do
        samples=$(heard)
        if ((samples > 0)); then
            result=sound
            break
        fi
        sleep 0.1
    done
    alert_stands 0 || { say "FAILED: the alert with '$setting' has gone by itself"; failures=$((failures + 1)); }
    timeout 20 wine "$quillo" /close >/dev/null 2>&1 || true
    wait "$running" || {
        say "FAILED: the program ends with $? after '$setting'"
        failures=$((failures + 1))
    }
    samples=$(heard)
    if [[ $result == "$what" ]]; then
        say "ok: $what with '$setting' ($samples bytes other than 0)"
    else
        say "FAILED: $result, not $what, with '$setting'"
        failures=$((failures + 1))
    fi
}

expect sound "$(windows_path "$tone.wav")"
expect sound "$(windows_path "$tone in capitals.WAV")"
expect sound "$(windows_path "$tone.mp3")"
expect sound "$(windows_path "$tone.wma")"
# Without a setting, the program uses its own sound, in its own folder.
if [[ -f $(dirname "$quillo")/Reminder.wma ]]; then expect sound ''; else expect silence ''; fi
expect silence "$(windows_path "$work/missing.wav")"
expect silence "$(windows_path "$work/missing.mp3")"
expect silence "$(windows_path "$work/broken.mp3")"
((failures == 0)) || die "$failures of the sounds failed"
