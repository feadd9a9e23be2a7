#!/usr/bin/env bash
# ./fuzz runs each target, shows what came of it in a table, keeps what was found as small as it
# gets where ctest replays it, and fails then: fuzz.sh SOURCE_DIRECTORY
set -euo pipefail
source=$1
stage=$(readlink -f "$(mktemp -d)")
trap 'rm -rf "$stage"' EXIT

# The script in a tree of its own, with a cmake that builds nothing and targets that play their part.
mkdir -p "$stage/bin" "$stage/tree/scripts" "$stage/tree/fuzzing/corpus/good" \
    "$stage/tree/build/fuzz/fuzzing" "$stage/tree/build/release/tests/hostile"
cp "$source/fuzz" "$stage/tree/"
{
    sed 's/^ensure_packages() {/&\n    return 0/' "$source/scripts/packages.sh"
} >"$stage/tree/scripts/packages.sh"
printf '#!/bin/sh\n' >"$stage/bin/cmake"
chmod +x "$stage/bin/cmake"
cd "$stage/tree"
printf 'good\nbad\n' >build/fuzz/fuzzing/targets.txt

# program PATH: what a target does comes from the standard input.
program() {
    { echo '#!/bin/bash'; cat; } >"$1"
    chmod +x "$1"
}
program build/fuzz/fuzzing/fuzz_good <<'P'
echo "$@" >>good-calls
echo 'INFO: Loaded 1 modules   (2957 inline 8-bit counters): 2957 [0x1, 0x2),'
echo '#4	INITED cov: 201 ft: 331 corp: 7/1976b'
echo '#9	DONE   cov: 211 ft: 553 corp: 57/9069b'
echo 'stat::number_of_executed_units: 28962'
P
program build/fuzz/fuzzing/fuzz_bad <<'P'
for each; do
    case $each in
        -artifact_prefix=*) prefix=${each#*=} ;;
        -exact_artifact_path=*) small=${each#*=} ;;
    esac
done
if [ -n "${small:-}" ]; then
    printf 'b' >"$small"
    exit 1
fi
printf 'a big input' >"${prefix}crash-0123"
echo 'stat::number_of_executed_units: 17'
exit 77
P
program build/fuzz/fuzzing/hostile_damageddictionaries <<'P'
echo "files $TESKEL_DAMAGED_FILES" >>programs
P
program build/release/tests/hostile/test_hostile_soak <<'P'
echo "look-ups $TESKEL_SOAK_LOOKUPS, switches $TESKEL_SOAK_SWITCHES" >>programs
P

fail() {
    echo "FAIL: $1"
    cat output 2>/dev/null || true
    exit 1
}
# runs STATUS ARGUMENT...
runs() {
    local status=0
    PATH=$stage/bin:$PATH ./fuzz "${@:2}" >output 2>&1 || status=$?
    [ "$status" = "$1" ] || fail "./fuzz ${*:2} ended with $status, not $1"
}

runs 2 none
runs 2 1 unknown
runs 0 2 good
grep -qE '^good +28962 +211 of 2957 +0$' output || fail "no row for the good target"
grep -q -- '-max_total_time=120 .*build/fuzz/corpus/good fuzzing/corpus/good$' good-calls ||
    fail "the target got another time or other corpora: $(cat good-calls)"
[ ! -e programs ] || fail "a single target ran the window, too"

runs 1 1
grep -qE '^bad +17 .* 1$' output || fail "no row for the bad target"
[ "$(cat tests/regression/bad/crash-0123)" = b ] || fail "what was found was not kept small"
[ ! -e tests/regression/good ] || fail "something was kept of the good target"
tail -n 1 good-calls | grep -q -- '-max_total_time=30 ' || fail "the targets do not share the time"
grep -q '^files 10000$' programs || fail "not 10,000 damaged dictionaries"
grep -q '^look-ups 1000000, switches 100000$' programs || fail "not as many look-ups and switches"

program build/release/tests/hostile/test_hostile_soak <<'P'
echo 'FAIL!  : it grows'
exit 1
P
# A wait that the same input does not need a second time.
rm -r tests/regression
program build/fuzz/fuzzing/fuzz_bad <<'P'
for each; do
    [ "${each#-artifact_prefix=}" = "$each" ] || prefix=${each#*=}
done
[ -n "${prefix:-}" ] || exit 0
printf 'input' >"${prefix}timeout-0123"
exit 70
P
runs 0 1 bad
[ ! -e tests/regression/bad ] || fail "a wait was taken for a hang"

printf 'good\n' >build/fuzz/fuzzing/targets.txt
runs 1 1
grep -q '^FAIL!  : it grows$' output || fail "the failure of a program is not shown"
