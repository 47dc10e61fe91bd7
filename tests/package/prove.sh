#!/usr/bin/env bash
# Runs some of the tests of the zip that ./package made for a real Windows, by the script in it.
# Needs a Wine folder of its own and a screen:
#
#   RUN_INSTEAD=tests/package/prove.sh tools/run-wine-tests.sh build/windows-release
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/../.."
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

fail()
{
    echo "FAILED: $*" >&2
    exit 1
}

says() { echo "-- $*"; }

# On a drive of its own, and without one that shows this machine: Wine would take the tests' paths for
# those of this machine, and what the zip lacks would not be missed.
packed=$WINEPREFIX/drive_c/proof
unzip -q "$(ls build/package/proof-*.zip)" -d "$work"
mv "$work"/proof-* "$packed"
ln -s "$packed/root" "$WINEPREFIX/dosdevices/v:"  # Wine's subst does nothing
rm -f "$WINEPREFIX/dosdevices/z:"

# Usage: prove FILTER; leaves the report in $report.
prove()
{
    local code=0
    (cd "$packed" && wine cmd /c 'C:\proof\prove.cmd' v: "$1") \
        </dev/null >"$work/out" 2>&1 || code=$?
    report=$(tr -d '\r' <"$packed/proof.txt")
    return "$code"
}

says "Every test program runs from the zip alone, and the report says that all passed"
prove 'Text*:*MembersOf*:*StudyOverCom*:ReportOf*Ends*:RunsOnWindows.NameWho*' ||
    fail "prove.cmd ended with code $?: $report"
while IFS= read -r program; do
    program=${program##*\\}
    program=${program%.exe*}
    [[ $report == *"== $program ended with 0"* ]] || fail "the report lacks $program: $report"
done <"$packed/tests.txt"
[[ $report == *"RESULT: all 9 test programs passed" ]] || fail "the report has no result: $report"
[[ $report != *"FAILED"* ]] || fail "$report"

says "A test that fails is told, by the report and by the exit code"
find "$packed/root" -name panel.neu -delete
! prove '*StudyOverCom*' || fail "prove.cmd ended well: $report"
[[ $report == *"RESULT: FAILED are study_test" ]] || fail "the report has another result: $report"

echo "the tests can be run elsewhere"
