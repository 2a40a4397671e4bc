# shellcheck shell=bash
# A Debian of its own in a temporary folder, for scripts/test-package. To be sourced after lib.sh, by
# root: it sets `clean`, the folder.

clean=$(mktemp -d)
chmod 755 "$clean" # an ordinary user works in it

may_mount() {
    local folder status=0
    folder=$(mktemp -d)
    { mount -t tmpfs tmpfs "$folder" && umount "$folder"; } 2>/dev/null || status=$?
    rmdir "$folder"
    return "$status"
}

# The system holds little beside apt, and its disk need not be safe. A place without mounts does for all but
# what needs one, which is then left out and says so.
make_clean_system() {
    local release unmounted=()
    release=$(. /etc/os-release && echo "$VERSION_CODENAME")
    may_mount || unmounted=(--skip=chroot/mount)
    debian_sources deb | mmdebstrap --quiet --mode=root --variant=apt --include=passwd "${unmounted[@]}" \
        --aptopt='Acquire::Languages "none"' --aptopt='APT::Install-Recommends "false"' \
        --dpkgopt=force-unsafe-io --skip=cleanup/apt/lists "$release" "$clean" - || return
    [ ${#unmounted[@]} -gt 0 ] || mount_inside || return
    mkdir "$clean/packages" && inside useradd --create-home technician
}

mount_inside() {
    mount -t proc proc "$clean/proc" && mount -t devpts -o newinstance,ptmxmode=0666 devpts "$clean/dev/pts"
}

has_terminals() { mountpoint --quiet "$clean/dev/pts"; }

remove_clean_system() {
    ! may_mount || umount --quiet "$clean/proc" "$clean/dev/pts" || true
    rm -rf --one-file-system "$clean" "$clean.apt"
}

inside() {
    chroot "$clean" env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin LC_ALL=C.UTF-8 DEBIAN_FRONTEND=noninteractive "$@"
}

apt_inside() { inside apt-get -q -y "$@" >>"$clean/packages/log" 2>&1; }

# with_apt_into_it COMMAND...: runs it here, where the apt-get that it calls works on the clean system.
with_apt_into_it() {
    printf 'Dir "%s";\nDPkg::Options { "--root=%s"; };\n' "$clean" "$clean" >"$clean.apt"
    APT_CONFIG=$clean.apt "$@"
}

# dependencies PACKAGE...: what apt installs beside these files.
dependencies() {
    inside apt-get install --simulate "$@" | awk '$1 == "Inst" && $2 !~ /^tar-vex-/ { print $2 }'
}

# files: the files of the clean system, without the accounts of apt and dpkg themselves.
files() {
    (cd "$clean" && find . -xdev \( -path ./proc -o -path ./dev -o -path ./tmp -o -path ./packages -o -path ./var/log \
        -o -path ./var/lib/dpkg -o -path ./var/lib/apt -o -path ./var/cache/apt \) -prune -o -printf '%p %y %m\n' | sort)
}
