# Functions shared by run.sh, test.sh and the scripts in this folder, which source it; sourcing it changes nothing.
# shellcheck shell=bash

quillo_root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
win_build=${QUILLO_BUILD_DIR:-$quillo_root/build/windows-x64}
cache_dir=${QUILLO_CACHE_DIR:-${XDG_CACHE_HOME:-$HOME/.cache}/quillo}

# The Debian 12 packages that the steps need.
build_packages=(cmake ninja-build g++-mingw-w64-x86-64-posix googletest librsvg2-bin python3 ffmpeg fp-utils
    libcli11-dev nlohmann-json3-dev g++)
wine_packages=(wine wine64 fonts-wine fonts-liberation)
desktop_packages=(xvfb x11-utils openbox picom trayer hsetroot imagemagick)
# The installer, and the checks of the winget manifests.
setup_packages=(nsis python3-jsonschema python3-yaml)
# Without these Wine plays no sound.
sound_packages=(gstreamer1.0-plugins-base gstreamer1.0-plugins-good gstreamer1.0-plugins-ugly gstreamer1.0-libav)
run_packages=("${build_packages[@]}" "${wine_packages[@]}" "${desktop_packages[@]}" "${sound_packages[@]}")
# shellcheck disable=SC2034  # used by package.sh
package_packages=("${build_packages[@]}" "${setup_packages[@]}" git)
# shellcheck disable=SC2034  # used by test.sh
test_packages=("${run_packages[@]}" "${setup_packages[@]}" clang libclang-rt-14-dev llvm lld clang-format clang-tidy
    g++-mingw-w64-i686-posix shellcheck codespell xdotool ffmpeg ghostscript poppler-utils groff-base tidy
    python3-html5lib python3-icalendar openssl osslsigncode)

# Prints one line on stderr, then exits with 1.
die() {
    printf '%s: %s\n' "${0##*/}" "$*" >&2
    exit 1
}

say() { printf '%s\n' "$*"; }

# run_logged LOG WHAT COMMAND...: quiet unless the command fails; then one line that names the log.
run_logged() {
    local log=$1 what=$2
    shift 2
    mkdir -p "$(dirname "$log")"
    "$@" >"$log" 2>&1 </dev/null || die "$what failed; see the end of $log"
}

missing_packages() {
    command -v dpkg-query >/dev/null || die "dpkg-query is missing: this needs Debian 12; install by hand: $*"
    local package state
    for package in "$@"; do
        # shellcheck disable=SC2016  # a format of dpkg-query, not a variable of the shell
        state=$(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null) || state=
        [[ $state == installed ]] || printf '%s\n' "$package"
    done
}

# Installs those of the named packages that are missing; does not call apt if all are present.
ensure_packages() {
    local missing as_root=() log=/tmp/quillo-apt-$UID.log
    mapfile -t missing < <(missing_packages "$@")
    ((${#missing[@]})) || return 0
    if ((UID != 0)); then
        command -v sudo >/dev/null || die "not root and no sudo: ask an administrator to install: ${missing[*]}"
        as_root=(sudo)
    fi
    say "Installing ${#missing[@]} Debian packages: ${missing[*]}"
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -q update >"$log" 2>&1 </dev/null ||
        die "apt-get update failed (is there a network, and are you an administrator?); see $log"
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -qy install --no-install-recommends \
        "${missing[@]}" >>"$log" 2>&1 </dev/null ||
        die "installing failed; see the end of $log, then install by hand: ${missing[*]}"
}

# build_preset PRESET TARGET...: configures a new tree, then builds.
build_preset() {
    local preset=$1
    shift
    local tree=$quillo_root/build/$preset
    [[ $preset == windows-x64 ]] && tree=$win_build
    mkdir -p "$tree"
    if [[ ! -f $tree/build.ninja ]]; then
        say "Configuring $preset"
        run_logged "$tree/configure.log" "configuring $preset" \
            cmake -S "$quillo_root" --preset "$preset" -B "$tree"
    fi
    if [[ $(ninja -C "$tree" -n "$@" 2>/dev/null) == *@(Building|Linking)* ]]; then
        say "Building $preset"
    fi
    run_logged "$tree/build.log" "building $preset" ninja -C "$tree" "$@"
}

# ---- Wine

# Values without which Wine asks questions or looks for missing components. The language of the session
# remains the user's own.
wine_environment() {
    export WINEDLLOVERRIDES="mscoree,mshtml=;winemenubuilder.exe=" WINEDEBUG=-all
}

# Sets a value in a prefix: wine_set KEY NAME DATA [TYPE]
wine_set() {
    timeout 60 wine reg add "$1" /v "$2" /t "${4:-REG_SZ}" /d "$3" /f >/dev/null 2>&1 </dev/null ||
        die "Wine cannot write its registry in $WINEPREFIX; remove that folder and try again"
}

# Creates the prefix $WINEPREFIX unless it is complete. Its marker is written last, so that an interrupted
# creation is repeated. Keeps the existing content.
ensure_prefix() {
    local marker=$WINEPREFIX/.quillo-ready font
    [[ -f $marker ]] && return 0
    say "Preparing Wine (once) in $WINEPREFIX"
    # Without this folder, Wine's Recycle Bin loses deleted files.
    mkdir -p "$WINEPREFIX" "$HOME/.local/share"
    timeout 300 wine wineboot -i >/dev/null 2>&1 </dev/null ||
        die "Wine cannot create its folder $WINEPREFIX (is the disk full?); remove it and try again"
    timeout 120 wineserver -w || true
    # A crash must end the program instead of waiting for a user to press a button.
    wine_set 'HKCU\Software\Wine\WineDbg' ShowCrashDialog 0 REG_DWORD
    for font in /usr/share/wine/fonts/*.ttf; do
        if [[ -f $font ]]; then cp "$font" "$WINEPREFIX/drive_c/windows/Fonts/"; fi
    done
    wine_set 'HKCU\Software\Wine\Fonts\Replacements' 'Arial' 'Liberation Sans'
    wine_set 'HKCU\Software\Wine\Fonts\Replacements' 'Courier New' 'Liberation Mono'
    wine_set 'HKCU\Software\Wine\Fonts\Replacements' 'Times New Roman' 'Liberation Serif'
    timeout 120 wineserver -w || true
    : >"$marker"
}

# A prefix to clone from. It has folders of its own instead of links into a home folder.
ensure_template() {
    local template=$cache_dir/wine-template link
    [[ -f $template/.quillo-template ]] && return 0
    rm -rf "$template"
    mkdir -p "$template.home"
    (
        export HOME=$template.home WINEPREFIX=$template
        unset XDG_DATA_HOME XDG_CACHE_HOME XDG_CONFIG_HOME DISPLAY
        wine_environment
        ensure_prefix
    ) || exit 1
    while IFS= read -r -d '' link; do
        rm "$link"
        mkdir "$link"
    done < <(find "$template/drive_c/users" -type l -print0)
    rm -rf "$template.home"
    : >"$template/.quillo-template"
}

# clone_prefix TO: a fresh prefix in well under a second; the system's own files stay in the template.
clone_prefix() {
    local template=$cache_dir/wine-template to=$1 part
    ensure_template
    mkdir -p "$to/drive_c"
    cp -a "$template"/*.reg "$template/.update-timestamp" "$template/.quillo-ready" "$template/dosdevices" "$to/"
    cp -a "$template/drive_c/users" "$template/drive_c/ProgramData" "$to/drive_c/"
    for part in windows 'Program Files' 'Program Files (x86)'; do
        if [[ -d $template/drive_c/$part ]]; then ln -s "$template/drive_c/$part" "$to/drive_c/$part"; fi
    done
}

# The processes of a prefix with that program name: prefix_pids PREFIX NAME
prefix_pids() {
    local prefix=$1 name=$2 dir comm
    for dir in /proc/[0-9]*; do
        { read -r comm <"$dir/comm"; } 2>/dev/null || continue
        [[ $comm == "$name" ]] || continue
        { tr '\0' '\n' <"$dir/environ"; } 2>/dev/null | grep -Fxq "WINEPREFIX=$prefix" || continue
        printf '%s\n' "${dir#/proc/}"
    done
}

# A Unix path in Windows form, on the drive that maps "/".
windows_path() {
    local path=Z:$1
    printf '%s' "${path//\//\\}"
}

# ---- The virtual desktop

display_answers() { DISPLAY=$1 timeout 10 xdpyinfo >/dev/null 2>&1; }

# value_of FILE NAME: a value from a file of "name=value" lines.
value_of() { sed -n "s/^$2=//p" "$1" 2>/dev/null | tail -n 1 || true; }

# is_running PID NAME
is_running() { [[ -n $1 && $(cat "/proc/$1/comm" 2>/dev/null) == "$2" ]]; }

# start_detached STATE NAME COMMAND...: starts it with all its streams closed, and records its process id.
start_detached() {
    local state=$1 name=$2
    shift 2
    setsid "$@" </dev/null >/dev/null 2>&1 &
    printf '%s=%s\n' "$name" "$!" >>"$state"
}

# start_xserver STATE SIZE: a virtual X server on a free display; sets DISPLAY.
start_xserver() {
    local state=$1 size=$2 answer number pid deadline=$((SECONDS + 30))
    answer=$(mktemp)
    mkdir -p /tmp/.X11-unix 2>/dev/null || true
    setsid Xvfb -displayfd 3 -screen 0 "$size" -nolisten tcp -noreset 3>"$answer" </dev/null >/dev/null 2>&1 &
    pid=$!
    # The number ends in a line break; until that has arrived, it is incomplete.
    until [[ $(wc -l <"$answer") -gt 0 ]]; do
        if ! kill -0 "$pid" 2>/dev/null || ((SECONDS > deadline)); then
            rm -f "$answer"
            die "the virtual X server did not start; try 'Xvfb :99 -screen 0 $size' to see why"
        fi
        sleep 0.05
    done
    number=$(tr -d '[:space:]' <"$answer")
    rm -f "$answer"
    printf 'display=:%s\nXvfb=%s\n' "$number" "$pid" >"$state"
    export DISPLAY=:$number
}

# write_openbox_theme FOLDER DPI: light frames, at that resolution.
write_openbox_theme() {
    local folder=$1/openbox-3 dpi=$2 edge length expressions=()
    mkdir -p "$folder"
    for length in 5 6; do expressions+=(-e "s/@$length@/$((length * dpi / 96))/"); done
    sed "${expressions[@]}" "$quillo_root/scripts/openbox_theme" >"$folder/themerc"
    edge=$((10 * dpi / 96))
    convert -size "${edge}x$edge" xc:white -fill none -stroke black -strokewidth "$(((dpi + 48) / 96))" +antialias \
        -draw "line 0,0 $((edge - 1)),$((edge - 1)) line 0,$((edge - 1)) $((edge - 1)),0" -monochrome "$folder/close.xbm"
}

# ensure_desktop STATE SIZE: finds the desktop that STATE names, or starts one and leaves it running: X server,
# window manager, compositor, tray, a plain background. Sets DISPLAY.
ensure_desktop() {
    local state=$1 size=$2 display
    display=$(value_of "$state" display)
    if [[ -n $display ]] && is_running "$(value_of "$state" Xvfb)" Xvfb && display_answers "$display"; then
        export DISPLAY=$display
    else
        mkdir -p "$(dirname "$state")"
        start_xserver "$state" "$size"
        hsetroot -add '#7f99a8' -add '#b8c4c0' -gradient 160 >/dev/null 2>&1 || true
    fi
    # The tray's space is reserved from the start: the system asks for the work area only once.
    local bar=$((26 * ${QUILLO_DEMO_DPI:-96} / 96)) settings=$state.openbox.xml
    write_openbox_theme "$state.theme" "${QUILLO_DEMO_DPI:-96}"
    # The first name in the file is that of the theme. A caption has what a dialog of Windows has: icon, text, cross.
    sed -e "s|<bottom>0</bottom>|<bottom>$bar</bottom>|" -e "0,/<name>.*</s||<name>$state.theme<|" \
        -e 's|<titleLayout>.*<|<titleLayout>NLC<|' -e "s|<size>[89]</size>|<size>$((9 * ${QUILLO_DEMO_DPI:-96} / 96))</size>|" \
        -e 's|<name>sans</name>|<name>Noto Sans, DejaVu Sans</name>|' /etc/xdg/openbox/rc.xml >"$settings"
    is_running "$(value_of "$state" openbox)" openbox ||
        start_detached "$state" openbox openbox --sm-disable --config-file "$settings"
    is_running "$(value_of "$state" picom)" picom ||
        start_detached "$state" picom picom --config "$quillo_root/scripts/picom.conf"
    is_running "$(value_of "$state" trayer)" trayer ||
        # As wide as the screen: a tray that grows with its icons never paints the first icon.
        start_detached "$state" trayer trayer --edge bottom --align right --widthtype percent --width 100 \
            --height "$bar" --SetDockType true --transparent true --alpha 140 --tint 0x20303a
    local deadline=$((SECONDS + 20))
    # The window manager announces itself on the root window.
    until DISPLAY=$DISPLAY timeout 5 xprop -root _NET_SUPPORTING_WM_CHECK 2>/dev/null | grep -q 'window id'; do
        if ((SECONDS > deadline)); then die "the window manager did not start on $DISPLAY; try 'DISPLAY=$DISPLAY openbox'"; fi
        sleep 0.05
    done
}

# stop_desktop STATE: ends what ensure_desktop started, and nothing else.
stop_desktop() {
    local state=$1 name pid
    [[ -f $state ]] || return 0
    for name in trayer picom openbox Xvfb; do
        pid=$(value_of "$state" "$name")
        if is_running "$pid" "$name"; then kill "$pid" 2>/dev/null || true; fi
    done
    rm -rf "$state" "$state.openbox.xml" "$state.theme"
}

# make_test_disks FOLDER: for the tests of a full and of a write-protected disk. Only root can create them; without them
# these tests are skipped.
make_test_disks() {
    local small=$1/small protected=$1/protected
    mkdir -p "$small" "$protected"
    mount -t tmpfs -o size=1m tmpfs "$small" 2>/dev/null || return 0
    mount -t tmpfs -o size=1m tmpfs "$protected" 2>/dev/null || return 0
    mkdir -p "$protected/Marrowind/Notes"
    printf 'write-protected' >"$protected/Marrowind/Notes/note.qln"
    mount -o remount,ro "$protected"
}

# remove_test_disks FOLDER
remove_test_disks() {
    local disk
    for disk in "$1/small" "$1/protected"; do
        if mountpoint -q "$disk"; then umount -l "$disk" || true; fi
    done
}

# name_test_places FOLDER: passes the places of these disks, and the home folder with the Recycle Bin, to the tests.
name_test_places() {
    local folder=$1
    unset QUILLO_SMALL_DISK QUILLO_PROTECTED_DISK
    QUILLO_TEST_HOME=$(windows_path "$folder/home")
    export QUILLO_TEST_HOME
    mountpoint -q "$folder/protected" || return 0
    QUILLO_SMALL_DISK=$(windows_path "$folder/small")
    QUILLO_PROTECTED_DISK=$(windows_path "$folder/protected")
    export QUILLO_SMALL_DISK QUILLO_PROTECTED_DISK
}

# use_test_desktop FOLDER: the tests' desktop in FOLDER, created if it is missing: a Wine prefix with one shared virtual
# desktop, an X server, a home folder, disks to be filled, and a resident program that keeps the desktop's services warm.
# Sets WINEPREFIX, HOME, DISPLAY and what name_test_places sets.
use_test_desktop() {
    local folder=$1 state=$1/desktop.state
    export WINEPREFIX=$folder/wine HOME=$folder/home
    if [[ -f $folder/ready ]]; then
        unset QUILLO_SMALL_DISK QUILLO_PROTECTED_DISK
        # shellcheck source=/dev/null
        source "$folder/ready"
        return
    fi
    mkdir -p "$HOME/.local/share"
    # A desktop has a database of resources. Without any, Wine's X11 driver looks for these files whenever a font is selected.
    printf '*customization: none\n' >"$HOME/.Xdefaults"
    make_test_disks "$folder"
    name_test_places "$folder"
    clone_prefix "$WINEPREFIX"
    start_xserver "$state" 1280x800x24
    wine_set 'HKCU\Software\Wine\Explorer' Desktop Quillo
    if [[ -n ${QUILLO_TEST_DPI:-} ]]; then
        wine_set 'HKCU\Control Panel\Desktop' LogPixels "$QUILLO_TEST_DPI" REG_DWORD
        timeout 60 wineserver -w || true # the resolution is read when the server starts
    fi
    wine_set 'HKCU\Software\Wine\Explorer\Desktops' Quillo 1280x800
    # The resident program is started first and with its streams detached: its child processes inherit them, and a reader of
    # the tests' output would otherwise wait forever.
    setsid wine "$win_build/tests/window_probe.exe" stay >/dev/null 2>&1 </dev/null &
    local deadline=$((SECONDS + 60))
    until [[ -n $(prefix_pids "$WINEPREFIX" window_probe.ex) ]] &&
        timeout 20 xwininfo -root -tree 2>/dev/null | grep -q 'Quillo - Wine desktop'; do
        ((SECONDS < deadline)) || die "the Wine desktop of the tests did not come up on $DISPLAY"
        sleep 0.05
    done
    # Without the focus on the desktop, no window in it receives keys.
    xdotool search --name 'Quillo - Wine desktop' windowfocus >/dev/null 2>&1 || true
    # For the tests that use the desktop next: finding these values takes longer than many tests.
    local name
    for name in DISPLAY QUILLO_TEST_HOME QUILLO_SMALL_DISK QUILLO_PROTECTED_DISK; do
        if [[ -v $name ]]; then printf 'export %s=%q\n' "$name" "${!name}"; fi
    done >"$folder/ready"
}

# screenshot FILE: takes pictures of $DISPLAY until two in a row are the same (or for a few seconds: a caret blinks).
screenshot() {
    local file=$1 last='' sum deadline=$((SECONDS + 4))
    while :; do
        timeout 20 import -silent -window root "$file" 2>/dev/null || die "no screenshot of $DISPLAY could be taken"
        sum=$(identify -quiet -format '%#' "$file")
        if [[ $sum == "$last" ]] || ((SECONDS > deadline)); then return 0; fi
        last=$sum
        sleep 0.3
    done
}
