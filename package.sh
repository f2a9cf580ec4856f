#!/usr/bin/env bash
# Builds the files of a release page in dist/: the installer, the zip, the winget manifests, checksums and licenses.
#   ./package.sh           from a clean tree; see docs/releasing.md
#   ./package.sh --check   builds twice, in folders of different names, and compares byte for byte
# QUILLO_RELEASE_URL   the address of the folder from which the installer will be downloaded
# QUILLO_SIGN          a command that signs the file named by its last argument, in place
set -euo pipefail
# shellcheck source=scripts/lib.sh
source "$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)/scripts/lib.sh"

case ${1:-} in
    '') check=no ;;
    --check) check=yes ;;
    *) die "usage: ./package.sh [--check]" ;;
esac

# The built sources must be the committed ones; otherwise nobody could repeat the build.
refuse_dirty_tree() {
    local changed
    changed=$(git -C "$quillo_root" status --porcelain) || die "this is not a clone of the repository"
    [[ -z $changed ]] || die "there are changes that are not committed; commit them or put them aside first:
$changed"
}

# make_package SOURCES TREE OUTPUT: builds SOURCES in TREE and fills OUTPUT.
make_package() {
    local sources=$1 tree=$2 output=$3
    mkdir -p "$tree"
    say "Building in $tree"
    run_logged "$tree/configure.log" "configuring" \
        cmake -S "$sources" --preset windows-x64 -B "$tree" -DQUILLO_TESTS=OFF
    run_logged "$tree/build.log" "building" ninja -C "$tree" quillo_shipped
    "$sources/packaging/assemble.sh" "$tree" "$output"
}

# Twice from two copies of the sources, whose paths have different lengths and only the commit in common.
check_twice() {
    local copy
    work=$(mktemp -d "${TMPDIR:-/tmp}/quillo-twice.XXXXXX")
    trap 'rm -rf "$work"' EXIT
    for copy in one 'the other'; do
        git clone -q "$quillo_root" "$work/$copy/sources"
        make_package "$work/$copy/sources" "$work/$copy/tree" "$work/$copy/dist"
    done
    diff -r "$work/one/dist" "$work/the other/dist" >"$work/differences" ||
        die "the two builds differ: $(cat "$work/differences")"
    say "Both builds have the same bytes:"
    cat "$work/one/dist/SHA256SUMS"
}

ensure_packages "${package_packages[@]}"
refuse_dirty_tree
SOURCE_DATE_EPOCH=$(git -C "$quillo_root" log -1 --format=%ct)
export SOURCE_DATE_EPOCH TZ=UTC LC_ALL=C.UTF-8
# A release must not depend on any state of this machine.
unset CXXFLAGS CFLAGS LDFLAGS
[[ -n ${QUILLO_RELEASE_URL:-} ]] ||
    printf 'package.sh: QUILLO_RELEASE_URL is not set: the winget manifests get a placeholder as their address\n' >&2

if [[ $check == yes ]]; then
    check_twice
    exit 0
fi
dist=$quillo_root/dist
rm -rf "$dist"
make_package "$quillo_root" "$quillo_root/build/package" "$dist"
say "Done:"
(cd "$dist" && find . -type f -printf '%9s  %P\n' | sort -k 2)
