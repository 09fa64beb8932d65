#!/usr/bin/env bash
# Runs the Windows tests under Wine 10, which comes from a Debian 13 below build/wine10/root. That is made with
# debootstrap the first time, from the mirror that this machine's apt uses, and kept. The programs are built here;
# the repository appears in the root under its own path. Needs root. Takes some ten minutes.
#
#   scripts/wine10.sh [CTEST ARGUMENT...]
#
# Without arguments it runs what test.sh runs; -R 'races$' runs the races.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."
. scripts/common.sh

root=$PWD/build/wine10/root

# The mirror of this machine's own Debian.
mirror() {
    . /etc/os-release
    apt-get indextargets --format '$(REPO_URI)' 'Identifier: Packages' "Codename: $VERSION_CODENAME" | sort -u
}

make_root() {
    local uri
    uri=$(mirror)
    [ -n "$uri" ] || fail "apt names no mirror of this Debian."
    echo "Making a Debian 13 in build/wine10/root ..."
    rm -rf "$root"
    mkdir -p "$root"
    quietly build/logs/debootstrap.log debootstrap --variant=minbase trixie "$root" "$uri"
    quietly build/logs/wine10-apt.log chroot "$root" env DEBIAN_FRONTEND=noninteractive \
        apt-get install -y --no-install-recommends cmake "${winePackages[@]}" "${displayPackages[@]}"
    touch "$root/.complete"
}

# What tests the files of the packages and the documents needs no Wine, but more than there is in the root.
[ $# -gt 0 ] || set -- -E 'races$|^package_|^documents$'
[ "$(id -u)" = 0 ] || fail "Run this as root: it makes a Debian and changes into it."
install_packages debootstrap
[ -f "$root/.complete" ] || make_root
packaging/package.sh
build_preset windows
unpack_portable

# So that a run that does not begin is counted as a failure and not by older results.
rm -rf build/windows/results

# Mounts and processes are those of a namespace and end with it, however the run ends. Failures are counted below.
unshare --mount --pid --fork --kill-child bash -euc '
    root=$1
    shift
    mkdir -p "$root$PWD"
    mount --bind "$PWD" "$root$PWD"
    mount --bind /dev "$root/dev"
    mount -t proc proc "$root/proc"
    mount -t tmpfs tmpfs "$root/tmp"
    exec chroot "$root" env PREFIXES=build/wine10 "$PWD/scripts/windows-tests.sh" "$@"' \
    bash "$root" "$@" || true
scripts/count-results.py windows
