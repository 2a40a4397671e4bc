# shellcheck shell=bash
# A Debian of its own in a temporary folder, for scripts/test-package. To be sourced after lib.sh, by
# root: it sets `clean`, the folder.

clean=$(mktemp -d)
chmod 755 "$clean" # an ordinary user works in it

# debian_sources: the sources of Debian that this machine has.
debian_sources() {
    # shellcheck disable=SC2016 # apt fills these in
    apt-get indextargets --format '$(REPO_URI) $(RELEASE) $(COMPONENT)' \
        'Created-By: Packages' 'Origin: Debian' |
        sed 's|^|deb [signed-by=/usr/share/keyrings/debian-archive-keyring.gpg] |' | sort -u
}

make_clean_system() {
    local release
    release=$(. /etc/os-release && echo "$VERSION_CODENAME")
    debian_sources | mmdebstrap --quiet --mode=root --variant=minbase "$release" "$clean" - &&
        mount -t proc proc "$clean/proc" &&
        mount -t devpts -o newinstance,ptmxmode=0666 devpts "$clean/dev/pts" &&
        mkdir "$clean/packages" && inside useradd --create-home technician && apt_inside update
}

remove_clean_system() {
    umount --quiet "$clean/proc" "$clean/dev/pts" || true
    rm -rf --one-file-system "$clean"
}

inside() {
    chroot "$clean" env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin LC_ALL=C.UTF-8 \
        DEBIAN_FRONTEND=noninteractive "$@"
}

apt_inside() { inside apt-get -q -y --no-install-recommends "$@" >>"$clean/packages/log" 2>&1; }

# packages_inside: the packages to try, as apt in the clean system finds them.
packages_inside() { (cd "$clean" && printf '/%s\n' packages/*.deb); }

# dependencies: what apt installs beside them.
dependencies() {
    local mine
    mapfile -t mine < <(packages_inside)
    inside apt-get install --simulate --no-install-recommends "${mine[@]}" |
        awk '$1 == "Inst" && $2 !~ /^tar-vex-/ { print $2 }'
}

# files: the files of the clean system, without the accounts of apt and dpkg themselves.
files() {
    (cd "$clean" && find . -xdev \( -path ./proc -o -path ./dev -o -path ./tmp -o -path ./packages -o -path ./var/log \
        -o -path ./var/lib/dpkg -o -path ./var/lib/apt -o -path ./var/cache/apt \) -prune -o -printf '%p %y %m\n' | sort)
}
