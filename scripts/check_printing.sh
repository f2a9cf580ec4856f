#!/usr/bin/env bash
# Checks printed pages by reading them back: check_printing.sh TESTS.EXE [TEST], inside wine_test_env.sh.
# The tests of the suite PaperTest get a PostScript printer; its output is converted to text, page by page. With
# QUILLO_KEEP_PRINTED, the last document is kept as a PDF file of that name.
set -euo pipefail
# shellcheck source=scripts/lib.sh
source "$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)/lib.sh"
(($#)) || die "usage: check_printing.sh TESTS.EXE [TEST]"
tests=$1
filter=${2:-PaperTest.*}
[[ -n ${WINEPREFIX:-} && -n ${DISPLAY:-} ]] || die "run it inside scripts/wine_test_env.sh"
command -v ps2pdf >/dev/null || die "ps2pdf is missing: install ghostscript"
command -v pdftotext >/dev/null || die "pdftotext is missing: install poppler-utils"

work=$(mktemp -d "${TMPDIR:-/tmp}/quillo-print.XXXXXX")
trap 'rm -rf "$work"' EXIT

# Runs at the printer's port. The text appears in one step, when it is complete.
cat >"$work/port" <<END
#!/bin/sh
cd '$work' || exit 1
cat >printed.txt.ps
echo >>printed.txt.count
ps2pdf printed.txt.ps printed.pdf && pdftotext -layout printed.pdf printed.part && mv printed.part printed.txt
END
chmod +x "$work/port"

status=0
QUILLO_TEST_PPD=$(windows_path "$quillo_root/tests/e2e/printer/test_printer.ppd") \
    QUILLO_TEST_PORT="|$work/port" QUILLO_PRINTED=$(windows_path "$work/printed.txt") \
    timeout 400 wine "$tests" --gtest_brief=1 --gtest_filter="$filter" >"$work/log" 2>&1 || status=$?
cat "$work/log"
if ((status == 0)) && grep -q 'PASSED.* 0 tests' "$work/log"; then die "no test has the name $filter"; fi
if [[ -n ${QUILLO_KEEP_PRINTED:-} ]]; then cp "$work/printed.pdf" "$QUILLO_KEEP_PRINTED"; fi
exit "$status"
