#!/usr/bin/env bash
# Builds Eng2Ger.PDB and Ger2Eng.PDB from the FreeDict dictionaries that Debian packs, once.
# Usage: make_real_lexicons.sh PROGRAM DIRECTORY STEP
# STEP 1 takes the whole dictionary; a larger one takes every STEP-th line of its index, and the
# words that tests ask for.
#
# A whole dictionary must be built in 60 seconds of CPU time and 400 MB of memory, whatever else the
# machine is doing: with limits, a build that wants more fails.
set -eu
program=$1
directory=$2
step=$3
sources=/usr/share/dictd

mkdir -p "$directory"
make_one() {
    local source=$sources/$1 target=$directory/$2 index
    if [ ! -r "$source.index" ]; then
        echo "$source.index is missing: install dict-$1" >&2
        return 1
    fi
    if [ -e "$target" ] && [ "$target" -nt "$source.index" ] && [ "$target" -nt "$program" ]; then
        echo "$target is up to date"
        return 0
    fi
    index=$source.index
    if [ "$step" -gt 1 ]; then
        index=$directory/$1.index
        ln -sf "$source.dict.dz" "$directory/$1.dict.dz"
        LC_ALL=C awk -F'\t' -v step="$step" \
            'NR % step == 0 || /^00database/ || $1 ~ /^(house|haus|abide|abode|set)$/' \
            "$source.index" >"$index"
    else
        ulimit -t 60 -v 409600
    fi
    "$program" build "$index" -o "$target"
}
(make_one freedict-eng-deu Eng2Ger.PDB) &
other=$!
(make_one freedict-deu-eng Ger2Eng.PDB)
wait "$other"
