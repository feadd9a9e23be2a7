#!/usr/bin/env bash
# Holds the files for the desktop to the validators: packaging.sh CHECK SOURCE BUILT
# Exit code 77: the validator is not installed.
set -eu
check=$1
source=$2
built=$3

need() {
    if ! command -v "$1" >/dev/null; then
        echo "skipped: $1 is not installed"
        exit 77
    fi
}

# A validator's findings are failures, its exit code alone is not enough.
silent() {
    local output
    output=$("$@" 2>&1) || { echo "$output"; exit 1; }
    [ -z "$output" ] || { echo "$output"; exit 1; }
}

case $check in
desktop)
    need desktop-file-validate
    silent desktop-file-validate "$built/org.teskel.Teskel.desktop"
    ;;
metainfo)
    need appstreamcli
    appstreamcli validate --no-net "$built/org.teskel.Teskel.metainfo.xml"
    ;;
mime)
    need update-mime-database
    stage=$(mktemp -d)
    trap 'rm -rf "$stage"' EXIT
    mkdir -p "$stage/mime/packages"
    cp "$source/packaging/teskel.xml" "$stage/mime/packages/"
    XDG_DATA_HOME=$stage silent update-mime-database "$stage/mime"
    grep -aq 'application/x-teskel-lexicon' "$stage/mime/magic"
    ;;
man)
    need groff
    for page in "$source"/docs/man/*.1; do
        silent groff -man -Tutf8 -ww -z "$page"
    done
    ;;
install)
    # Every installed program has its page, where `man` finds it.
    stage=$(mktemp -d)
    trap 'rm -rf "$stage"' EXIT
    DESTDIR=$stage cmake --install "$built/.." --prefix /usr >/dev/null
    for program in teskel teskel-lexicon; do
        [ -n "$(find "$stage" -path "*/bin/$program" -type f -executable)" ] || {
            echo "$program is not installed"
            exit 1
        }
        [ -n "$(find "$stage" -path "*/man/man1/$program.1" -size +0)" ] || {
            echo "the manual page of $program is not installed"
            exit 1
        }
    done
    ;;
icons)
    for size in 16 22 24 32 48 64 128 256; do
        file="$source/packaging/icons/hicolor/${size}x${size}/apps/teskel.png"
        # Width and height stand at byte 16 of a PNG file.
        read -r width height < <(od -An -j16 -N8 -t u4 --endian=big "$file")
        [ "$width" = "$size" ] && [ "$height" = "$size" ] || {
            echo "$file measures ${width}x$height"
            exit 1
        }
    done
    ;;
names)
    # One name ties the window, the bus, the menu entry and the description together.
    id=org.teskel.Teskel
    grep -q "\"$id\"" "$source/src/platform/application/documentservice.cpp"
    grep -q "<id>$id</id>" "$built/$id.metainfo.xml"
    grep -q ">$id.desktop</launchable>" "$built/$id.metainfo.xml"
    grep -q '^MimeType=application/x-teskel-lexicon;$' "$built/$id.desktop"
    if grep -q '^DBusActivatable=true$' "$built/$id.desktop"; then
        grep -q "^Name=$id\$" "$built/$id.service"
        grep -q '^Exec=/.*/teskel$' "$built/$id.service"
    fi
    version=$(sed -n 's/.*<release version="\([^"]*\)".*/\1/p' "$built/$id.metainfo.xml" | head -n 1)
    for page in "$source"/docs/man/*.1; do
        grep -q "\"Teskel $version\"" "$page" || {
            echo "$page does not name version $version"
            exit 1
        }
    done
    ;;
*)
    echo "unknown check: $check"
    exit 2
    ;;
esac
