#!/usr/bin/env bash
# The check of the hardening names what a program lacks: finds_each_fault.sh COMPILER
set -euo pipefail
compiler=$1
check=$(dirname "$(readlink -f "$0")")/hardening.sh
stage=$(mktemp -d)
trap 'rm -rf "$stage"' EXIT

cat >"$stage/sample.cpp" <<'SAMPLE'
#include <cstdio>
#include <cstring>
int main(int count, char **arguments)
{
    char copy[16];
    std::strcpy(copy, arguments[count - 1]);
    return std::puts(copy);
}
SAMPLE
whole=(-w -O2 -fstack-protector-strong -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2 -fPIE -pie
    -Wl,-z,relro,-z,now,-z,noexecstack)

# expect MESSAGE FLAG...: a sample built with these flags besides has this fault and no other.
expect() {
    local shown
    "$compiler" "${whole[@]}" "${@:2}" "$stage/sample.cpp" -o "$stage/sample"
    shown=$(bash "$check" "$stage/sample" || true)
    if [ "$shown" != "${1:+$stage/sample: $1}" ]; then
        printf 'with %s\nwanted: %s\nwas: %s\n' "${*:2}" "$1" "$shown"
        exit 1
    fi
}
expect ''
expect 'is not position independent' -fno-pie -no-pie
expect "keeps the linker's tables writable" -Wl,-z,norelro
expect 'binds functions when they are called, not when it starts' -Wl,-z,lazy
expect 'does not check its stack' -fno-stack-protector
expect 'calls no function that checks sizes' -U_FORTIFY_SOURCE
expect 'has a stack that can be executed' -Wl,-z,execstack
