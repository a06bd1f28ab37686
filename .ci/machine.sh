# Sourced by .ci/fresh and .ci/package: a minimal Debian 12 beside this machine, for one script.

# in_own_mounts WHAT SCRIPT ARGUMENTS...: starts the script once more, as root and where mounts end
# with it, however it ends. Leaves with 77 and a loud line where a machine of that kind cannot be set
# up: WHAT has not been looked at then.
in_own_mounts() {
    [ -z "${KELVRO_OWN_MOUNTS:-}" ] || return 0
    local what=$1 as_root=() reason=
    shift
    if [ "$(. /etc/os-release && echo "${VERSION_CODENAME:-}")" != bookworm ]; then
        reason="the programs are not built on Debian 12"
    elif ! command -v mmdebstrap >/dev/null; then
        reason="mmdebstrap is not installed"
    elif [ "$(id -u)" -ne 0 ] && ! sudo -n true 2>/dev/null; then
        reason="needs root or sudo"
    else
        [ "$(id -u)" -eq 0 ] || as_root=(sudo)
        "${as_root[@]}" unshare -m true 2>/dev/null || reason="mounts are not allowed"
    fi
    if [ -n "$reason" ]; then
        printf '\n!! SKIPPED: no minimal Debian 12 here (%s).\n!! %s has NOT been looked at.\n\n' \
            "$reason" "$what"
        exit 77
    fi
    exec "${as_root[@]}" env KELVRO_OWN_MOUNTS=1 unshare -m "$@"
}

# minimal_machine: unpacks one into the folder $machine, which goes when the script ends. Its image
# serves all scripts of a day.
minimal_machine() {
    local image=$root/build/ci/minimal.tar
    if [ -z "$(find "$image" -mtime -1 2>/dev/null)" ]; then
        mkdir -p "$root/build/ci"
        mmdebstrap --quiet --mode=root --variant=minbase --skip=cleanup/apt/lists \
            --dpkgopt=force-unsafe-io bookworm "$root/build/ci/new.tar"
        mv "$root/build/ci/new.tar" "$image"
    fi
    machine=$(mktemp -d)
    trap remove_machine EXIT
    tar -xf "$image" -C "$machine" --numeric-owner
    # Reading a file leaves its mark here, whatever the machine does elsewhere.
    mount --bind "$machine" "$machine"
    mount -o remount,bind,strictatime "$machine"
    mount -t proc proc "$machine/proc"
    mount --rbind /dev "$machine/dev"
}

# Folders of this machine are mounted there: nothing is removed while one of them still is. Programs
# that are still running keep mounts busy, but not from being taken out of sight.
remove_machine() {
    umount -R -l "$machine" 2>/dev/null || true
    if grep -qF " $machine" /proc/self/mounts; then
        echo "Left behind, as something is still mounted there: $machine" >&2
    else
        rm -rf --one-file-system "$machine"
    fi
}

inside() {
    chroot "$machine" /usr/bin/env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin HOME=/tmp "$@"
}

apt_get() {
    inside DEBIAN_FRONTEND=noninteractive apt-get -y -qq "$@" >"$machine/var/apt.log" 2>&1 ||
        { cat "$machine/var/apt.log"; return 1; }
}

# stays_open COMMAND...: does a window program start there, and stay for some seconds?
stays_open() {
    local code=0
    inside QT_QPA_PLATFORM=offscreen timeout 4 "$@" 2>/dev/null || code=$?
    [ "$code" = 124 ] || { echo "$1 does not start: exit code $code"; return 1; }
}
