#!/usr/bin/env bash
# The include check must find an arrow that runs the wrong way, else it proves nothing.
set -eu
here=$1
tree=$(mktemp -d)
trap 'rm -rf "$tree"' EXIT
mkdir -p "$tree/src/dictionary" "$tree/src/widgets"
echo '#include "dictionary/decode.h"' >"$tree/src/widgets/wrong.h"
echo '#include "dictionary/decode.h"' >"$tree/src/dictionary/right.h"
if output=$(bash "$here/includes.sh" "$tree"); then
    echo "a widget that includes the engine was not noticed"
    exit 1
fi
grep -q 'src/widgets may not include dictionary/decode.h' <<<"$output"
! grep -q 'right.h' <<<"$output"
