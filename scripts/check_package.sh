#!/usr/bin/env bash
# Builds a release from the build tree, and checks it: check_package.sh TREE
# First twice without a signature: the bytes must be the same. Then once with a test certificate: every program, the
# uninstaller and the installer must be signed, and checksums and manifests must match the signed files.
set -euo pipefail
# shellcheck source=scripts/lib.sh
source "$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)/lib.sh"
(($# == 1)) || die "usage: check_package.sh TREE"
tree=$1
work=$(mktemp -d "${TMPDIR:-/tmp}/quillo-package.XXXXXX")
trap 'rm -rf "$work"' EXIT
export SOURCE_DATE_EPOCH=1700000000
unset QUILLO_SIGN QUILLO_RELEASE_URL

# The tree's own files are not changed: the stage is made from a copy of the shipped files.
copy=$work/tree
mkdir -p "$copy/src/resources"
while read -r file _; do cp "$tree/$file" "$copy/"; done < <(sed 's/#.*//; /^ *$/d' "$quillo_root/packaging/files.txt")
cp -r "$tree/packaging" "$copy/packaging"
cp -r "$tree/src/resources/artwork" "$copy/src/resources/artwork"

assemble() { "$quillo_root/packaging/assemble.sh" "$copy" "$1" || die "the package was not put together"; }

# ---- The same bytes
assemble "$work/one"
assemble "$work/two"
diff -r "$work/one" "$work/two" >/dev/null || die "two packages of the same files differ"
(cd "$work/one" && sha256sum --quiet -c SHA256SUMS) || die "the sums are wrong"
grep -q 'InstallerUrl: https://downloads.example/quillo/Quillo-' "$work"/one/winget/*.installer.yaml ||
    die "without an address of its own the manifest has no placeholder"
size=$(stat -c %s "$work"/one/*-setup.exe)
((size < 1048576)) || die "the installer has $size bytes: 1 MB is its limit"

# ---- Signed
openssl req -x509 -newkey rsa:2048 -nodes -days 2 -subj '/CN=Nobody' -addext extendedKeyUsage=codeSigning \
    -keyout "$work/key.pem" -out "$work/certificate.pem" 2>/dev/null || die "no certificate could be made"
# Keeps a copy of each file that it has signed, so that the uninstaller can be checked as well.
cat >"$work/signer" <<END
#!/bin/sh
set -e
osslsigncode sign -certs '$work/certificate.pem' -key '$work/key.pem' -in "\$1" -out "\$1.signed"
mv "\$1.signed" "\$1"
cp "\$1" "$work/signed/\$(ls '$work/signed' | wc -l)"
printf '%s\n' "\$(basename "\$1")" >>'$work/signed.log'
END
chmod +x "$work/signer"
mkdir "$work/signed"
export QUILLO_SIGN=$work/signer QUILLO_RELEASE_URL=https://somewhere.example/download/
assemble "$work/three"
programs=$(sed -n 's/ program$//p' "$quillo_root/packaging/files.txt" | wc -l)
signed=$(wc -l <"$work/signed.log")
((signed == programs + 2)) || die "$signed files were signed, not the $programs programs, the uninstaller and the installer"
tail -n 1 "$work/signed.log" | grep -q -- '-setup.exe$' || die "the installer was not the last to be signed"
for file in "$work"/signed/* "$work"/three/*-setup.exe; do
    osslsigncode verify -CAfile "$work/certificate.pem" -in "$file" >"$work/verify.log" 2>&1 ||
        die "a signature is not good: $(tail -n 3 "$work/verify.log")"
done
(cd "$work/three" && sha256sum --quiet -c SHA256SUMS) || die "the sums are not those of the signed files"
sum=$(sha256sum "$work"/three/*-setup.exe | cut -d ' ' -f 1)
grep -qi "InstallerSha256: $sum" "$work"/three/winget/*.installer.yaml || die "the manifest has another sum"
grep -q 'InstallerUrl: https://somewhere.example/download/Quillo-' "$work"/three/winget/*.installer.yaml ||
    die "the manifest has another address"

# ---- Errors are detected
if QUILLO_SIGN=false "$quillo_root/packaging/assemble.sh" "$copy" "$work/four" >/dev/null 2>&1; then
    die "a signature that failed was not noticed"
fi
if QUILLO_SIGN='' QUILLO_RELEASE_URL=nowhere "$quillo_root/packaging/assemble.sh" "$copy" "$work/five" >/dev/null 2>&1; then
    die "a manifest with an address that is none was not refused"
fi
say "the package: good ($size bytes of installer)"
