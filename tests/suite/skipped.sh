#!/usr/bin/env bash
# A test that skips a part of itself shows as skipped, unless it fails in any way; and what was
# skipped is named with its reason: skipped.sh SOURCE_DIRECTORY
set -euo pipefail
source=$1
stage=$(mktemp -d)
trap 'rm -rf "$stage"' EXIT

# add NAME EXIT_STATUS LINE...: a test that prints the lines
add() {
    local name=$1 status=$2
    shift 2
    printf '%s\n' "$@" >"$stage/$name.txt"
    printf 'cat "%s"\nexit %s\n' "$stage/$name.txt" "$status" >"$stage/$name.sh"
    cat >>"$stage/CTestTestfile.cmake" <<TEST
add_test($name bash "$source/tests/suite/run-test" bash "$stage/$name.sh")
set_tests_properties($name PROPERTIES SKIP_RETURN_CODE 77)
TEST
}
add whole 0 'PASS   : A::a()' 'Totals: 3 passed, 0 failed, 0 skipped, 0 blacklisted, 5ms'
add partly 0 'SKIP   : B::b(row) no right to mount (here)' '   Loc: [b.cpp(3)]' \
    'Totals: 12 passed, 0 failed, 1 skipped, 0 blacklisted, 5ms'
add broken 1 'SKIP   : C::c() no bus' 'FAIL!  : C::d() wrong' \
    'Totals: 2 passed, 1 failed, 1 skipped, 0 blacklisted, 5ms'
# As after a report of the sanitizers at the end.
add leaking 23 'SKIP   : L::l() no bus' \
    'Totals: 4 passed, 0 failed, 1 skipped, 0 blacklisted, 5ms'
add script 77 'skipped: a-validator is not installed'

expect() {
    grep -qE -- "$1" <<<"$2" || {
        printf 'not there: %s\nin:\n%s\n' "$1" "$2"
        exit 1
    }
}
shown=$(ctest --test-dir "$stage" 2>&1) || true
expect 'whole .*Passed' "$shown"
expect 'partly .*Skipped' "$shown"
expect 'broken .*Failed' "$shown"
expect 'leaking .*Failed' "$shown"
expect 'script .*Skipped' "$shown"

named=$("$source/scripts/skipped-tests" "$stage")
expect '^  partly: B::b\(row\): no right to mount \(here\)$' "$named"
expect '^  broken: C::c\(\): no bus$' "$named"
expect '^  script: all: a-validator is not installed$' "$named"
if grep -q whole <<<"$named"; then
    echo "a test that skipped nothing is named: $named"
    exit 1
fi
