# Debian packages by purpose, and the one function that installs what is missing. Sourced by
# ./run and ./test.

packages_build=(
    build-essential cmake ninja-build qt6-base-dev zlib1g-dev libpng-dev libicu-dev
    libarchive-dev libcli11-dev libdeflate-dev libgl-dev
)
packages_reader=(qt6-qpa-plugins fonts-dejavu-core dict-freedict-eng-deu dict-freedict-deu-eng)
packages_test=(
    arj 7zip dictzip gzip xz-utils zstd locales # independent witnesses of the packed records
    sdcv                                       # and of the exports
    xvfb openbox xdotool xclip x11-utils imagemagick
    dbus dbus-daemon at-spi2-core python3 python3-pyatspi # the reader as a screen reader sees it
    dict-freedict-eng-rus dict-freedict-ell-eng dict-wn # texts beyond Latin-1, numbered senses
    dict-gcide dict-jargon                     # long articles
    valgrind                                   # counts instructions
    desktop-file-utils appstream shared-mime-info groff-base e2fsprogs
)
packages_bench=(libbenchmark-dev sdcv valgrind)
packages_screenshots=(qt6-gtk-platformtheme)
packages_lint=(clang clang-tidy clang-format libclang-rt-14-dev)
packages_coverage=(gcovr)
packages_fuzz=(clang libclang-rt-14-dev)

# ensure_packages NAME...: installs those that are not there yet, and says which.
ensure_packages() {
    local missing=() name known
    # dpkg-query fails when it does not know one of the names; the others are listed all the same.
    known=$(dpkg-query -W -f '${Package} ${db:Status-Abbrev}\n' "$@" 2>/dev/null |
        awk '$2 == "ii" {print $1}') || true
    for name in "$@"; do
        grep -qxF -- "$name" <<<"$known" || missing+=("$name")
    done
    [ ${#missing[@]} -gt 0 ] || return 0

    local as_root=()
    if [ "$(id -u)" -ne 0 ]; then
        if ! command -v sudo >/dev/null; then
            echo "Teskel needs these Debian packages; install them as root, then start again: ${missing[*]}" >&2
            return 1
        fi
        as_root=(sudo)
    fi
    echo "Installing Debian packages: ${missing[*]}" >&2
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get update -qq >&2 || true
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get install -y -qq --no-install-recommends "${missing[@]}" </dev/null >&2
}
