#!/usr/bin/env bash
# tidy --changed hands each source that changed to clang-tidy, and for a header one that includes
# it: tidy.sh SOURCE_DIRECTORY
set -euo pipefail
source=$1
if [ -z "$(command -v git)" ]; then
    echo "skipped: git is not installed"
    exit 77
fi
stage=$(readlink -f "$(mktemp -d)")
trap 'rm -rf "$stage"' EXIT
export GIT_CONFIG_GLOBAL=/dev/null GIT_CONFIG_NOSYSTEM=1
unset GIT_DIR GIT_WORK_TREE GIT_INDEX_FILE

# The script in a tree of its own, with tools that do nothing but say what they were given.
mkdir -p "$stage/bin" "$stage/tree/scripts" "$stage/tree/build/tidy"
cp "$source/scripts/tidy" "$stage/tree/scripts/"
for tool in clang-format cmake; do
    printf '#!/bin/sh\n' >"$stage/bin/$tool"
done
# shellcheck disable=SC2016
printf '#!/bin/sh\nfor each; do echo "<$each>"; done\n' >"$stage/bin/run-clang-tidy"
chmod +x "$stage/bin/"*
cd "$stage/tree"

# file NAME INCLUDED...
file() {
    mkdir -p "$(dirname "$1")"
    { printf '#include "%s"\n' "${@:2}"; } >"$1"
}
file src/a/same.cpp a/other.h
file src/a/beside.h base/other.h
file src/a/beside.cpp a/beside.h
file src/a/alone.h base/other.h
file src/a/user.cpp a/alone.h
file src/a/hidden.h base/other.h
file src/a/shown.h a/hidden.h
file src/a/shown.cpp a/shown.h
file src/a/unused.h base/other.h
file tests/support/help.h base/other.h
file tests/a/test_user.cpp tests/support/help.h
file src/a/notes.txt a/alone.h
git init -q .
git add .
git -c user.name=a -c user.email=a@example.org commit -qm begin

# expect CHANGED... -- SOURCE...: those sources are read when those files have changed.
expect() {
    local wanted=() shown
    git checkout -q HEAD -- .
    while [ "$1" != -- ]; do
        echo '// changed' >>"$1"
        shift
    done
    shift
    for name in "$@"; do wanted+=("<$stage/tree/$name\$>"); done
    shown=$(PATH="$stage/bin:$PATH" scripts/tidy --changed HEAD | grep '^</.*\$>$' || true)
    if [ "$shown" != "$(printf '%s\n' "${wanted[@]}")" ]; then
        printf 'wanted: %s\n' "${wanted[@]}"
        printf 'was: %s\n' "$shown"
        exit 1
    fi
}
expect src/a/same.cpp -- src/a/same.cpp
expect src/a/beside.h -- src/a/beside.cpp
expect src/a/beside.h src/a/beside.cpp -- src/a/beside.cpp
expect src/a/alone.h -- src/a/user.cpp
expect src/a/hidden.h -- src/a/shown.cpp
expect tests/support/help.h -- tests/a/test_user.cpp
expect src/a/alone.h src/a/unused.h src/a/notes.txt src/a/same.cpp -- src/a/same.cpp src/a/user.cpp
expect src/a/unused.h --
