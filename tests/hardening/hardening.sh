#!/usr/bin/env bash
# Names what a program lacks of what cmake/TeskelHardening.cmake asks for: hardening.sh PROGRAM
set -euo pipefail
program=$1
headers=$(LC_ALL=C readelf --wide --file-header --program-headers --dynamic "$program")
symbols=$(LC_ALL=C readelf --wide --dyn-syms "$program")
status=0

# need WHAT PATTERN TEXT
need() {
    grep -qE -- "$2" <<<"$3" || {
        echo "$program: $1"
        status=1
    }
}
need "is not position independent" 'FLAGS_1.* PIE' "$headers"
need "keeps the linker's tables writable" '^ *GNU_RELRO ' "$headers"
need "binds functions when they are called, not when it starts" \
    '\(FLAGS\).*BIND_NOW|\(FLAGS_1\).* NOW' "$headers"
need "does not check its stack" '__stack_chk_fail(@|$)' "$symbols"
need "calls no function that checks sizes" ' __(mem|str|v?f?printf|v?sn?printf|read|pread)[a-z]*_chk(@|$)' "$symbols"
if grep -qE '^ *GNU_STACK .* RWE +0x' <<<"$headers"; then
    echo "$program: has a stack that can be executed"
    status=1
fi
exit "$status"
