#!/usr/bin/env bash
# Holds the folders below src/ to their one direction: what a folder may include and link.
set -u
root=$1
status=0

declare -A allowed=(
    [base]=""
    [dictionary]="base"
    [platform]="base"
    [settings]="base platform"
    [widgets]="base"
    [files]="base platform"
    [lookup]="base dictionary settings widgets"
    [app]="base dictionary platform settings widgets files lookup"
    [lexicon]="base dictionary"
)

for path in "$root"/src/*/; do
    folder=$(basename "$path")
    if [ -z "${allowed[$folder]+known}" ]; then
        echo "src/$folder: a folder that the architecture does not name"
        status=1
        continue
    fi
    ok=" $folder ${allowed[$folder]} "
    while IFS=: read -r file line include; do
        target=${include%%/*}
        [ -n "${allowed[$target]+known}" ] || continue
        if [[ "$ok" != *" $target "* ]]; then
            echo "$file:$line: src/$folder may not include $include"
            status=1
        fi
    done < <(grep -rnoP --include='*.h' --include='*.cpp' '^\s*#\s*include\s*"\K[^"]+' "$path")
    if [ -f "$path/CMakeLists.txt" ]; then
        while read -r library; do
            target=${library#teskel_}
            [ -n "${allowed[$target]+known}" ] || continue
            if [[ "$ok" != *" $target "* ]]; then
                echo "src/$folder/CMakeLists.txt: may not link $library"
                status=1
            fi
        done < <(grep -oP '\bteskel_[a-z]+\b' "$path/CMakeLists.txt" | sort -u)
    fi
done

# The engine serves programs without a window.
while IFS= read -r hit; do
    echo "$hit: the engine uses Qt Core alone"
    status=1
done < <(grep -rnE --include='*.h' --include='*.cpp' '#\s*include\s*<Q(Widget|Application|GuiApplication|Font|Color|Pixmap|Image)' "$root/src/dictionary" "$root/src/base" 2>/dev/null)
exit $status
