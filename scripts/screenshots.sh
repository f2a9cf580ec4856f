#!/usr/bin/env bash
# Renews docs/screenshots: the demo's notes on a desktop at 96 and at 144 dpi.
set -euo pipefail
# shellcheck source=scripts/lib.sh
source "$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)/lib.sh"

# The demo of this script has a data folder of its own and leaves the user's alone.
work=$(mktemp -d "${TMPDIR:-/tmp}/quillo-shots.XXXXXX")
# shellcheck disable=SC2317  # called by the trap
clean_up() {
    in_demo_folder 96 1280x800 /close >/dev/null 2>&1 || true
    rm -rf "$work"
}
in_demo_folder() {
    local dpi=$1 size=$2
    shift 2
    env -u DISPLAY XDG_DATA_HOME="$work" XDG_CACHE_HOME="${XDG_CACHE_HOME:-$HOME/.cache}" QUILLO_DEMO_DPI="$dpi" \
        QUILLO_DESKTOP_SIZE="$size" "$quillo_root/run.sh" --demo "$@"
}
trap clean_up EXIT

target=$quillo_root/docs/screenshots
mkdir -p "$target"
for shot in '96 1280x800' '144 1920x1200'; do
    read -r dpi size <<<"$shot"
    in_demo_folder "$dpi" "$size" >"$work/log" || die "the demo did not start; see the line above"
    cp "$work/quillo/demo.png" "$target/notes-${dpi}dpi.png"
    in_demo_folder "$dpi" "$size" /close >/dev/null
    say "docs/screenshots/notes-${dpi}dpi.png"
done
