#!/usr/bin/env bash
# Records the pictures of tests/golden, with which a test compares the program's windows.
#   scripts/golden_pictures.sh           records new ones in build/golden, and reports the differences
#   scripts/golden_pictures.sh --renew   replaces them with the new ones; check these before you commit them
set -euo pipefail
# shellcheck source=scripts/lib.sh
source "$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)/lib.sh"

(($# == 0)) || [[ $# == 1 && $1 == --renew ]] || die "usage: golden_pictures.sh [--renew]"
ensure_packages "${run_packages[@]}" xdotool
golden=$quillo_root/tests/golden
fresh=$quillo_root/build/golden
tests=$win_build/tests/quillo_e2e_tests.exe

build_preset windows-x64 quillo quillo_e2e_tests window_probe
rm -rf "$fresh"
mkdir -p "$fresh" "$golden"
QUILLO_GOLDEN_OUT=$(windows_path "$fresh") run_logged "$fresh/log" "taking the pictures" \
    "$quillo_root/scripts/wine_test_env.sh" timeout 300 wine "$tests" --gtest_filter='GoldenPictures.*'

for picture in "$fresh"/*.png; do
    name=${picture##*/}
    # The smallest lossless form of a picture.
    convert "$picture" -strip -define png:compression-level=9 "$picture"
    if [[ ! -f $golden/$name ]]; then
        say "$name is new"
    elif ! pixels=$(compare -metric AE "$golden/$name" "$picture" "${picture%.png}-difference.jpg" 2>&1); then
        say "$name differs in $pixels pixels: ${picture%.png}-difference.jpg"
    fi
done
cmp -s "$fresh/desktop.txt" "$golden/desktop.txt" || say "the desktop is another one: see desktop.txt"
if [[ ${1:-} == --renew ]]; then
    rm -f "$golden"/*.png
    cp "$fresh"/*.png "$fresh/desktop.txt" "$golden"
    say "Renewed: $(find "$golden" -name '*.png' | wc -l) pictures in tests/golden"
fi
