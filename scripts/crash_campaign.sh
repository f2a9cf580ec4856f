#!/usr/bin/env bash
# Kills the real program N times while it works, and counts the notes that were lost, doubled, torn or left
# over: crash_campaign.sh N [SEED]. Needs the Windows build of the program and of its end-to-end tests.
set -euo pipefail
# shellcheck source=scripts/lib.sh
source "$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)/lib.sh"
[[ ${1:-} =~ ^[0-9]+$ ]] || die "usage: crash_campaign.sh N [SEED]"
tests=$win_build/tests/quillo_e2e_tests.exe
[[ -f $tests ]] || die "$tests is missing: build the target quillo_e2e_tests first"

# At most a minute for the start, and ten seconds for each kill.
QUILLO_CRASH_KILLS=$1 QUILLO_CRASH_SEED=${2:-$RANDOM} "$quillo_root/scripts/wine_test_env.sh" \
    timeout $((60 + 10 * $1)) wine "$tests" --gtest_brief=1 --gtest_filter=CrashCampaign.NoKillLosesANote </dev/null
