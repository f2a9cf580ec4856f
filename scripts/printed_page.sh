#!/usr/bin/env bash
# Updates docs/screenshots/printed-page.png: a printed note.
set -euo pipefail
# shellcheck source=scripts/lib.sh
source "$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)/lib.sh"

ensure_packages "${test_packages[@]}"
build_preset windows-x64 all

work=$(mktemp -d "${TMPDIR:-/tmp}/quillo-page.XXXXXX")
trap 'rm -rf "$work"' EXIT
QUILLO_KEEP_PRINTED=$work/page.pdf "$quillo_root/scripts/wine_test_env.sh" "$quillo_root/scripts/check_printing.sh" \
    "$win_build/tests/quillo_e2e_tests.exe" PaperTest.ParagraphsAreWrappedBetweenWords >"$work/log" ||
    die "nothing was printed: $(tail -n 5 "$work/log")"
gs -q -dNOPAUSE -dBATCH -sDEVICE=png16m -r300 -sOutputFile="$work/page.png" "$work/page.pdf"
# The sheet at a third of its resolution, with its edge.
convert "$work/page.png" -resize 33.3% -bordercolor '#b8b8b8' -border 1 \
    "$quillo_root/docs/screenshots/printed-page.png"
say "docs/screenshots/printed-page.png"
