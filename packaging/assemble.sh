#!/usr/bin/env bash
# Builds a release from a built tree: assemble.sh TREE OUTPUT
# OUTPUT gets the installer, the zip, the winget manifests, the licenses and SHA256SUMS. Files are signed before
# anything depends on their bytes: first the programs, then the uninstaller, then the installer.
# SOURCE_DATE_EPOCH    the time of all files
# QUILLO_RELEASE_URL   the address of the folder from which the installer will be downloaded
# QUILLO_SIGN          a command that signs the file named by its last argument, in place
set -euo pipefail
# shellcheck source=scripts/lib.sh
source "$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)/../scripts/lib.sh"
(($# == 2)) || die "usage: assemble.sh TREE OUTPUT"
[[ -n ${SOURCE_DATE_EPOCH:-} ]] || die "SOURCE_DATE_EPOCH is not set"
tree=$1
output=$2
packaging=$quillo_root/packaging
export SOURCE_DATE_EPOCH TZ=UTC LC_ALL=C.UTF-8

# A value from the single source of the program's identity.
identity() {
    /usr/bin/python3 -c 'import json, sys; print(json.load(open(sys.argv[1]))[sys.argv[2]])' \
        "$tree/packaging/identity.json" "$1"
}

# The names of the files that ship, or of one kind of them.
shipped() {
    sed 's/#.*//' "$packaging/files.txt" | awk -v kind="${1:-}" 'NF && (kind == "" || $2 == kind) { print $1 }'
}

sign() {
    [[ -n ${QUILLO_SIGN:-} ]] || return 0
    # The command may have options of its own.
    bash -c "$QUILLO_SIGN \"\$1\"" sign "$1" >/dev/null || die "signing $1 failed"
}

stage=$tree/stage
rm -rf "$stage"
mkdir -p "$stage" "$output"
while IFS= read -r file; do cp "$tree/$file" "$stage/$file"; done < <(shipped)
while IFS= read -r file; do sign "$stage/$file"; done < <(shipped program)
while IFS= read -r file; do touch -d "@$SOURCE_DATE_EPOCH" "$stage/$file"; done < <(shipped)

title=$(identity name)-$(identity version)
setup=$output/$title-setup.exe
/usr/bin/python3 "$packaging/make_setup.py" --stage "$stage" --identity "$tree/packaging/identity.json" \
    --icon "$tree/src/resources/artwork/setup.ico" --output "$setup" --sign "${QUILLO_SIGN:-}"
sign "$setup"
/usr/bin/python3 "$packaging/make_zip.py" "$stage" "$title" "$output/$title.zip"
cp "$tree/Licenses.txt" "$output/Licenses.txt"
/usr/bin/python3 "$packaging/make_winget.py" --identity "$tree/packaging/identity.json" --setup "$setup" \
    --url "${QUILLO_RELEASE_URL:-}" --output "$output/winget"
sums=$(cd "$output" && find . -type f ! -name SHA256SUMS -printf '%P\n' | sort | xargs -d '\n' sha256sum)
printf '%s\n' "$sums" >"$output/SHA256SUMS"
