#!/usr/bin/env bash
# Builds Quillo and starts it, or passes the arguments to the running Quillo.
#   ./run.sh                 start it
#   ./run.sh /new            a new note
#   ./run.sh FILE            open a file as a note (@FILE does the same)
#   ./run.sh /close          quit
#   ./run.sh --demo [...]    all of that on a throwaway profile with sample notes
set -euo pipefail
# shellcheck source=scripts/lib.sh
source "$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)/scripts/lib.sh"

readonly up_seconds=${QUILLO_UP_SECONDS:-60}
data_dir=${XDG_DATA_HOME:-$HOME/.local/share}/quillo
demo=no
[[ ${1:-} == --demo ]] && { demo=yes; shift; }
(($# <= 1)) || die "one argument at a time: /new, /close or a file"

# The argument in the program's form: a path becomes a Windows path, a command stays unchanged.
translate_argument() {
    local argument=$1 at=''
    case ${argument,,} in
        /close* | /new*) [[ -e $argument ]] || { printf '%s' "$argument"; return; } ;;
    esac
    [[ $argument == @* ]] && { at=@; argument=${argument#@}; }
    if [[ -e $argument ]]; then
        printf '%s%s' "$at" "$(windows_path "$(realpath "$argument")")"
    elif [[ -z $at && $argument == /* && ${argument#/} != */* ]]; then
        printf '%s' "$argument"
    else
        die "there is no file '$argument'"
    fi
}

# The user's desktop, or a virtual one that is left running.
choose_desktop() {
    if [[ -n ${DISPLAY:-} ]]; then
        display_answers "$DISPLAY" ||
            die "the desktop DISPLAY=$DISPLAY does not answer: correct DISPLAY, or unset it for a virtual desktop"
        return
    fi
    ensure_desktop "$desktop_state" "${QUILLO_DESKTOP_SIZE:-1280x800}x24"
    virtual=yes
}

# The folder for the sample notes, before the program has ever run there.
prepare_demo() {
    local profile
    profile=$(mktemp -d "${TMPDIR:-/tmp}/quillo-demo.XXXXXX")
    mkdir -p "$data_dir" "$profile/home/.local/share"
    printf 'profile=%s\n' "$profile" >"$demo_state"
    clone_prefix "$profile/wine"
    mkdir -p "$profile/wine/drive_c/users/Ann"/{Desktop,Documents,AppData/Roaming}
    /usr/bin/python3 "$quillo_root/scripts/demo_notes.py" "$profile/wine/drive_c/users/Ann/AppData/Local/Marrowind/Notes"
}

# The settings of the demo, written once its desktop is running. Its folders are those of a user named Ann.
set_up_demo() {
    local settings=$profile/settings.reg
    {
        printf 'REGEDIT4\n\n[HKEY_CURRENT_USER\\Software\\Marrowind\\Quillo]\n"Shown Help"=dword:ffffffff\n'
        printf '"Shortcut %s"="C:\\\\windows\\\\%s.exe"\n' 1 notepad 2 'system32\\winemine' 3 regedit 4 'system32\\taskmgr'
        # Windows has this, Wine does not: without it every program has the same icon.
        printf '\n[HKEY_LOCAL_MACHINE\\Software\\Classes\\.exe]\n@="exefile"\n'
        printf '\n[HKEY_CURRENT_USER\\Control Panel\\Desktop]\n"LogPixels"=dword:%08x\n' "${QUILLO_DEMO_DPI:-96}"
        printf '\n[HKEY_CURRENT_USER\\Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\User Shell Folders]\n'
        printf '"%s"="C:\\\\Users\\\\Ann\\\\%s"\n' Desktop Desktop Personal Documents AppData 'AppData\\Roaming' \
            'Local AppData' 'AppData\\Local'
    } >"$settings"
    timeout 60 wine regedit /S "$(windows_path "$settings")" >/dev/null 2>&1 </dev/null ||
        die "Wine cannot write its registry in $WINEPREFIX; remove that folder and try again"
    timeout 60 wineserver -w || true # the resolution is read when the server starts
    printf 'ready=yes\n' >>"$demo_state"
}

# The demo's program is where a user would have it: its dialogs show the path of its sound.
install_demo() {
    local folder=$WINEPREFIX/drive_c/Quillo
    mkdir -p "$folder"
    cp -u "$win_build"/{quillo.exe,Quillo.chm,Reminder.wma} "$folder"
    exe=$folder/quillo.exe
}

is_up() { [[ -n $(prefix_pids "$WINEPREFIX" quillo.exe) ]]; }

# Ends the processes that a closed Quillo leaves running: the server of its prefix, the virtual desktop, the demo's profile.
clean_up() {
    if [[ -d $WINEPREFIX ]]; then timeout 60 wineserver -k >/dev/null 2>&1 || true; fi
    stop_desktop "$desktop_state"
    if [[ $demo == yes && -n $profile ]]; then
        rm -rf "$profile" "$demo_state"
    fi
}

# Starts the program with all its streams detached, so that a reader of this script's output does not wait for it.
launch() {
    mkdir -p "$(dirname "$log")"
    if is_up && (($#)); then
        timeout "$up_seconds" wine "$exe" "$@" >"$log" 2>&1 </dev/null ||
            die "Quillo did not take '$*' within $up_seconds seconds; it may be showing a message on $DISPLAY"
    elif ! is_up; then
        setsid wine "$exe" "$@" >"$log" 2>&1 </dev/null &
    fi
}

report() {
    local answer folder
    answer=$(timeout $((up_seconds + 10)) wine "$probe" wait "$up_seconds" 2>/dev/null </dev/null | tr -d '\r') ||
        die "Quillo did not come up within $up_seconds seconds; see $log and the desktop $DISPLAY"
    folder=$(sed -n 's/^hostfolder\t//p' <<<"$answer")
    say "Quillo is up on $DISPLAY. Visible notes: $(grep -c '^note' <<<"$answer" || true)"
    say "Notes folder: $(realpath -m "$folder")"
    say "  in Windows: $(sed -n 's/^folder\t//p' <<<"$answer")"
    if [[ $virtual == yes ]]; then
        screenshot "$picture"
        say "Screenshot:   $picture"
    fi
}

close_quillo() {
    if ! is_up; then
        clean_up
        say "Quillo is not running; nothing is left running."
        return
    fi
    launch "$@"
    timeout 100 wine "$probe" gone "$up_seconds" >/dev/null 2>&1 </dev/null ||
        die "Quillo did not end within $up_seconds seconds; it may be asking something on $DISPLAY"
    clean_up
    say "Quillo has ended."
}

ensure_packages "${run_packages[@]}"

arguments=()
if (($#)) && [[ -n $1 ]]; then
    translated=$(translate_argument "$1") || exit 1
    arguments=("$translated")
fi
closing=no
[[ ${arguments[0]:-} == /[cC][lL][oO][sS][eE]* ]] && closing=yes

exe=$win_build/quillo.exe
probe=$win_build/tests/window_probe.exe
virtual=no
profile=
wine_environment
if [[ $demo == yes ]]; then
    demo_state=$data_dir/demo.state
    desktop_state=$data_dir/demo-desktop.state
    picture=$data_dir/demo.png
    profile=$(value_of "$demo_state" profile)
    log=$data_dir/demo.log
    export WINEPREFIX=${profile:-/nonexistent}/wine
else
    desktop_state=$data_dir/desktop.state
    picture=$data_dir/desktop.png
    log=$data_dir/quillo.log
    export WINEPREFIX=$data_dir/wine
fi

if [[ $closing == yes ]] && ! is_up; then
    close_quillo
    exit 0
fi

build_preset windows-x64 quillo window_probe

if [[ $demo == yes && $closing == no ]] && { ! is_up || ((!${#arguments[@]})); }; then
    # A demo starts from the beginning each time, unless it only receives a command.
    if [[ -n $profile ]]; then clean_up; fi
    prepare_demo
    profile=$(value_of "$demo_state" profile)
    export WINEPREFIX=$profile/wine
fi
if [[ $demo == yes ]]; then
    unset XDG_DATA_HOME XDG_CONFIG_HOME
    export HOME=$profile/home
fi
choose_desktop
if [[ $demo == yes ]]; then
    [[ $(value_of "$demo_state" ready) == yes ]] || set_up_demo
    install_demo
else
    ensure_prefix
fi

if [[ $closing == yes ]]; then
    close_quillo "${arguments[@]}"
else
    launch "${arguments[@]}"
    report
fi
