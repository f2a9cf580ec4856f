#!/usr/bin/env bash
# Updates docs/screenshots: the demo's notes, the program's menus and its dialogs, on desktops at 96, 144 and 192 dpi
# (QUILLO_SCREENSHOT_DPI="96" takes those of one only).
#   scripts/screenshots.sh            all of them
#   scripts/screenshots.sh SCENE...   only these, in an order in which none needs state that an earlier one removed:
#                                     notes, reminder, menus, icon, colors, mainmenu, about, options, alert, dates,
#                                     empty, balloon, faces, setup
set -euo pipefail
# shellcheck source=scripts/lib.sh
source "$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)/lib.sh"

scenes=(notes reminder menus icon colors mainmenu about options alert dates empty balloon faces setup)
(($#)) && scenes=("$@")
ensure_packages "${run_packages[@]}" "${setup_packages[@]}" xdotool pngquant
target=$quillo_root/docs/screenshots
probe=$win_build/tests/window_probe.exe
faces=$win_build/tests/menu_faces.exe

# The demo of this script has a data folder of its own and does not change the user's.
work=$(mktemp -d "${TMPDIR:-/tmp}/quillo-shots.XXXXXX")
# shellcheck disable=SC2317  # called by the trap
clean_up() {
    local profile
    profile=$(value_of "$work/quillo/demo.state" profile)
    if ! demo /close >/dev/null 2>&1 && [[ -n $profile ]]; then
        # A menu may be open: nothing is lost with this profile.
        WINEPREFIX=$profile/wine timeout 60 wineserver -k >/dev/null 2>&1 || true
        stop_desktop "$work/quillo/demo-desktop.state"
        rm -rf "$profile"
    fi
    rm -rf "$work"
}
trap clean_up EXIT

# Everything below is in pixels at 96 dpi on a desktop of 1280 by 800.
dpi=96
px() { printf '%d' $(($1 * dpi / 96)); }

# demo ARGUMENT...: run.sh on a throwaway profile.
demo() {
    env -u DISPLAY XDG_DATA_HOME="$work" XDG_CACHE_HOME="${XDG_CACHE_HOME:-$HOME/.cache}" QUILLO_DEMO_DPI="$dpi" \
        QUILLO_DESKTOP_SIZE="$(px 1280)x$(px 800)" "$quillo_root/run.sh" --demo "$@"
}

# ---- User input

point_at() { xdotool mousemove "$(px "$1")" "$(px "$2")"; }
# click X Y [BUTTON]
click() {
    point_at "$1" "$2"
    xdotool click "${3:-1}"
}
# A place where the pointer shows no tool tip.
rest() { point_at 640 760; }

# ---- Pictures

# A suffix for the names of the pictures that a scene takes with other settings.
variant=
# part NAME X Y WIDTH HEIGHT: that part of the desktop, in device pixels, once it no longer changes.
part() {
    local file=$target/$1$variant-${dpi}dpi.png
    screenshot "$work/desktop.png"
    convert "$work/desktop.png" -crop "$4x$5+$2+$3" +repage -strip "$work/part.png"
    # A palette keeps the files small, without a visible difference.
    pngquant --force --quality 80-100 --speed 1 --output "$file" "$work/part.png" || cp "$work/part.png" "$file"
    say "docs/screenshots/${file##*/}"
}

# box_of CLASS: left, top, width and height of the visible window of that class, once it exists.
box_of() {
    { wine "$probe" box 20 "$1" 2>/dev/null </dev/null || true; } | tr -d '\r' | cut -f 2-
}
await() { [[ -n $(box_of "$1") ]] || die "no window of the class $1 came within 20 seconds"; }

# The time between the appearance of a window and its first picture on the desktop.
settle() { sleep 1; }

# around NAME CLASS [LEFT TOP RIGHT BOTTOM]: the window of that class with a margin of 24 pixels, or the given one.
around() {
    local name=$1 class=$2 box left top right bottom margins=("${@:3}")
    ((${#margins[@]})) || margins=(24 24 24 24)
    box=$(box_of "$class")
    [[ -n $box ]] || die "no window of the class $class came within 20 seconds"
    settle
    read -r left top right bottom <<<"$box"
    right=$((left + right + $(px "${margins[2]}")))
    bottom=$((top + bottom + $(px "${margins[3]}")))
    left=$((left - $(px "${margins[0]}")))
    top=$((top - $(px "${margins[1]}")))
    ((left > 0)) || left=0
    ((top > 0)) || top=0
    part "$name" $left $top $((right - left)) $((bottom - top))
}

# ---- Scenes. Each one restores the desktop.

scene_notes() {
    rest
    part notes 0 0 "$(px 1280)" "$(px 800)"
}

# ask_reminder X Y: presses Ctrl+R in the note at that point.
ask_reminder() {
    click "$1" "$2"
    xdotool key ctrl+r
    await QuilloSetReminder
    rest
}

scene_reminder() {
    ask_reminder 150 240
    around reminder QuilloSetReminder
    xdotool type soon
    xdotool key Return
    around reminder-message QuilloSetReminder
    xdotool key Escape
    ask_reminder 670 145 # a note that already has a reminder
    xdotool key Tab Tab Tab space
    around reminder-set QuilloSetReminder
    xdotool key Escape
}

scene_alert() {
    ask_reminder 380 260
    xdotool type 'in 1 second'
    xdotool key Return
    rest
    await QuilloReminder
    around alert QuilloReminder
    xdotool key Escape
}

# The program's own icon beside the clock, and to its left that of a note.
point_at_icon() { point_at 1269 787; }
point_at_note_icon() { point_at 1249 787; }

# Minimizes a note to its icon.
minimize_note() {
    click 380 260
    xdotool key ctrl+m
    rest
    settle
}

scene_menus() {
    click 60 51 # the note's own button
    await '#32768'
    rest
    around note-menu '#32768' 60 60 24 24
    xdotool key Escape
    minimize_note
    point_at_note_icon
    xdotool click 3
    await '#32768'
    rest
    around icon-menu '#32768' 24 24 24 32
    xdotool key Return # shows the note again
    settle
}

scene_icon() {
    minimize_note
    point_at_note_icon
    around note-icon tooltips_class32 40 60 8 24
    xdotool click 1
    settle
}

scene_balloon() {
    # At 192 dpi Wine draws its balloons too low for their title.
    ((dpi < 192)) || return 0
    local left top
    read -r left top _ <<<"$(box_of QuilloNote)"
    xdotool mousemove $((left + $(px 12))) $((top + $(px 11))) click 1
    await '#32768'
    xdotool key Down Down Down Down Down Down Down Down Return # hides the note
    rest
    around balloon tooltips_class32 24 40 8 32
}

scene_colors() {
    click 60 51
    await '#32768'
    xdotool key Down Down Down Down Return
    await QuilloNoteColor
    rest
    around note-colors QuilloNoteColor 260 40 24 40
    xdotool key Escape
}

# The menu is in the corner above the tray.
readonly menu_left=980 menu_top=594
open_menu() {
    point_at_icon
    xdotool click 1
    await QuilloMenu
    rest
}
leave_menu() {
    xdotool key Escape
    rest
}
point_at_item() { point_at $((menu_left + $1)) $((menu_top + $2)); }
choose_item() {
    point_at_item "$1" "$2"
    xdotool click 1
}

scene_mainmenu() {
    open_menu
    around menu QuilloMenu 24 24 0 32
    point_at_item 50 110
    around menu-new-note QuilloMenu 24 24 0 32
    point_at_item 250 90
    around menu-options QuilloMenu 24 24 0 32
    leave_menu
}

scene_about() {
    open_menu
    choose_item 248 20
    await QuilloAbout
    rest
    around about QuilloAbout
    xdotool key Escape
}

scene_options() {
    local page
    open_menu
    choose_item 250 90
    await QuilloOptions
    rest
    for page in appearance shortcuts behavior help; do
        around "options-$page" QuilloOptions
        xdotool key Right
    done
    xdotool key Escape
}

end_program() {
    wine "$exe" /close >/dev/null 2>&1 </dev/null
    wine "$probe" gone 30 >/dev/null 2>&1 </dev/null || die "the program did not end"
}
start_program() {
    setsid wine "$exe" >/dev/null 2>&1 </dev/null &
    wine "$probe" wait 30 >/dev/null 2>&1 </dev/null || die "the program did not come up again"
    settle
}

# Dates as long as any user may have configured them, and numbers with a comma.
scene_dates() {
    end_program
    wine_set 'HKCU\Control Panel\International' sShortDate 'dddd, d. MMMM yyyy'
    wine_set 'HKCU\Control Panel\International' sDecimal ','
    start_program
    variant=-long-dates
    ask_reminder 670 145
    around reminder QuilloSetReminder
    xdotool key Escape
    scene_colors
    scene_about
    scene_options
    variant=
}

# The third and the fourth program removed, and no note open.
scene_empty() {
    open_menu
    choose_item 250 90
    await QuilloOptions
    settle
    xdotool key --delay 200 Right alt+3 ctrl+a Delete alt+4 ctrl+a Delete Escape
    open_menu
    around menu-empty-slots QuilloMenu 24 24 0 32
    leave_menu
    end_program
    find "$WINEPREFIX/drive_c/users" -name '*.qln' -delete
    start_program
    open_menu
    point_at_item 150 90
    around menu-no-notes QuilloMenu 24 24 0 32
    leave_menu
    wine "$exe" /new >/dev/null 2>&1 </dev/null
    await QuilloNote
}

# Wine has no high contrast: the menu's faces are drawn as the program composes them.
scene_faces() {
    local planes=$win_build/src/resources/artwork/menu_$((dpi * 100 / 96)).planes
    wine "$faces" "$(windows_path "$planes")" "$(windows_path "$work/faces.ppm")" >/dev/null 2>&1 </dev/null ||
        die "$faces could not compose the menu"
    convert "$work/faces.ppm" "$target/menu-faces-${dpi}dpi.png"
    pngquant --force --quality 80-100 --speed 1 --ext .png "$target/menu-faces-${dpi}dpi.png"
    say "docs/screenshots/menu-faces-${dpi}dpi.png"
}

# The pages of the installer, for a user named Ann: the first time, over an earlier version, and when uninstalling.
scene_setup() {
    local setups=$win_build/tests/setups folder='C:\Users\Ann\AppData\Local\Programs\Quillo'
    end_program
    setsid wine "$setups/old-setup.exe" "/D=$folder" >/dev/null 2>&1 </dev/null &
    rest
    around setup '#32770'
    xdotool key Escape
    wait "$!" || true
    timeout 60 wine "$setups/old-setup.exe" /S /NOSTART "/D=$folder" >/dev/null 2>&1 </dev/null ||
        die "the program could not be installed"
    setsid wine "$setups/new-setup.exe" >/dev/null 2>&1 </dev/null &
    around setup-update '#32770'
    xdotool key Escape
    wait "$!" || true
    # From its own folder: its copy in the temporary folder would still be running afterwards.
    setsid wine "$folder\\uninstall.exe" "_?=$folder" >/dev/null 2>&1 </dev/null &
    around setup-remove '#32770'
    xdotool key Escape
    wait "$!" || true
    start_program
}

# ----

mkdir -p "$target"
build_preset windows-x64 quillo window_probe menu_faces quillo_test_setups
for dpi in ${QUILLO_SCREENSHOT_DPI:-96 144 192}; do
    demo >"$work/log" || die "the demo did not start; see the line above"
    DISPLAY=$(value_of "$work/quillo/demo-desktop.state" display)
    WINEPREFIX=$(value_of "$work/quillo/demo.state" profile)/wine
    export DISPLAY WINEPREFIX
    exe=$WINEPREFIX/drive_c/Quillo/quillo.exe # see install_demo of run.sh
    wine_environment
    for scene in "${scenes[@]}"; do "scene_$scene"; done
    demo /close >/dev/null
done
