# shellcheck shell=bash
# What the commands in this folder share. To be sourced: it sets `root`, the folder of the clone.

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)

# Qt wants a UTF-8 locale, and a bare machine has none set.
[ -n "${LC_ALL:-}${LC_CTYPE:-}${LANG:-}" ] || export LANG=C.UTF-8

say() { printf '%s: %s\n' "$(basename "$0")" "$*" >&2; }

die() {
    say "$*"
    exit 1
}

# packages_of GROUP...: the packages of these groups of scripts/packages.
packages_of() {
    local group
    for group in "$@"; do
        awk -v group="$group" '$1 == group { print $2 }' "$root/scripts/packages"
    done
}

is_installed() {
    [ "$(dpkg-query -W -f='${db:Status-Status}' "$1" 2>/dev/null)" = installed ]
}

# as_root COMMAND...: runs it as root, by sudo for an ordinary user.
as_root() {
    if [ "$(id -u)" -eq 0 ]; then
        "$@"
    else
        sudo "$@"
    fi
}

apt() {
    as_root env DEBIAN_FRONTEND=noninteractive apt-get -q -o DPkg::Lock::Timeout=120 "$@"
}

# debian_sources TYPE: the sources of Debian that this machine has, as lines for apt: TYPE is deb, or deb-src for
# source packages.
debian_sources() {
    # shellcheck disable=SC2016 # apt fills these in
    apt-get indextargets --format '$(REPO_URI) $(RELEASE) $(COMPONENT)' \
        'Created-By: Packages' 'Origin: Debian' |
        sed "s|^|$1 [signed-by=/usr/share/keyrings/debian-archive-keyring.gpg] |" | sort -u
}

# need GROUP...: installs what is missing of these groups; asks nothing of apt when nothing is.
need() {
    local package missing=()
    if ! command -v dpkg-query >/dev/null; then
        say "this is no Debian: see to the packages of scripts/packages yourself"
        return
    fi
    for package in $(packages_of "$@"); do
        is_installed "$package" || missing+=("$package")
    done
    [ ${#missing[@]} -gt 0 ] || return 0
    if [ "$(id -u)" -ne 0 ] && ! command -v sudo >/dev/null; then
        die "packages are missing, and neither root nor sudo is there to install them." \
            "As root: apt-get install ${missing[*]}"
    fi
    say "installing ${missing[*]}"
    apt update || { sleep 5 && apt update; } || say "apt-get update failed; trying with the lists there are"
    apt install -y --no-install-recommends "${missing[@]}" ||
        die "the packages could not be installed"
}

# build PRESET [TARGET...]: configures and builds these targets, or everything.
build() {
    local preset=$1
    shift
    cd "$root" &&
        cmake --preset "$preset" &&
        cmake --build --preset "$preset" --parallel "$(nproc)" ${1:+--target "$@"}
}

# in_virtual_display COMMAND...: runs it on a screen that nobody sees, of SCREEN pixels.
in_virtual_display() {
    # The display's own files go where no name has a blank: xvfb-run takes none.
    env -u WAYLAND_DISPLAY TMPDIR=/tmp xvfb-run -a -s "-screen 0 ${SCREEN:-1280x800}x24" \
        env -u TMPDIR ${TMPDIR:+"TMPDIR=$TMPDIR"} "$root/scripts/under-window-manager" "$@"
}

failed=0
# attempt NAME FUNCTION: runs a check and remembers in `failed` whether it failed.
attempt() {
    local start=$SECONDS
    if "$2"; then
        say "$1: nothing found ($((SECONDS - start)) s)"
    else
        say "$1: FAILED"
        # shellcheck disable=SC2034 # who sources this file ends with it
        failed=1
    fi
}
