#!/usr/bin/env bash
# Tests an update on a disk that is too small for it: check_full_disk.sh TESTS.EXE, inside wine_test_env.sh.
# Ends with 77, which ctest treats as "skipped", if the user may not mount a small disk.
set -euo pipefail
# shellcheck source=scripts/lib.sh
source "$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)/lib.sh"
(($# == 1)) || die "usage: check_full_disk.sh TESTS.EXE"
[[ -n ${WINEPREFIX:-} && -n ${DISPLAY:-} ]] || die "run it inside scripts/wine_test_env.sh"

disk=$(mktemp -d "${TMPDIR:-/tmp}/quillo-disk.XXXXXX")
trap 'umount "$disk" 2>/dev/null || true; rmdir "$disk"' EXIT
if ! mount -t tmpfs -o size=32m tmpfs "$disk" 2>/dev/null; then
    say "skipped: mounting a small disk takes an administrator"
    exit 77
fi
ln -s "$disk" "$WINEPREFIX/dosdevices/s:"
status=0
QUILLO_INSTALL_DISK='S:' timeout 240 wine "$1" --gtest_brief=1 --gtest_filter='FullDisk.*' >"$WINEPREFIX/log" 2>&1 </dev/null ||
    status=$?
cat "$WINEPREFIX/log"
if ((status == 0)) && grep -q 'PASSED.* 0 tests' "$WINEPREFIX/log"; then die "there is no test of the full disk"; fi
timeout 60 wineserver -k || true # the disk is in use while the server runs
exit "$status"
