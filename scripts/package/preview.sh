#!/usr/bin/env bash
# Makes the Debian package brvhost-preview_<version>_all.deb, and prints its path. npm fetches what it needs of Node, by
# preview/package-lock.json. Exit status 77: it cannot be made here.
#
#   scripts/package/preview.sh FOLDER
set -euo pipefail
[ $# -eq 1 ] || { echo "usage: scripts/package/preview.sh FOLDER" >&2; exit 2; }
folder=$(realpath -m "$1")
cd "$(dirname "$0")/../.."
. scripts/package/release.sh

for tool in dpkg-deb node npm; do
  command -v "$tool" >/dev/null || unavailable "no package of brvhost-preview: no $tool"
done
archive=$folder/brvhost-preview_${version}_all.deb
staging=$(mktemp -d)
trap 'rm -rf "$staging"' EXIT
umask 022
program=$staging/usr/share/brvhost-preview
documents=$staging/usr/share/doc/brvhost-preview
manual=$staging/usr/share/man/man1

mkdir -p "$program" "$documents" "$manual" "$staging/usr/bin" "$staging/DEBIAN"
cp -R preview/{bin,source,page,package.json,package-lock.json,.npmrc} "$program"
(cd "$program" && timeout 600 npm ci --silent --omit=dev --ignore-scripts --no-audit --no-fund >&2) ||
  unavailable "no package of brvhost-preview: npm cannot fetch what preview/package-lock.json names"
rm -rf "$program"/{package-lock.json,.npmrc,node_modules/.package-lock.json,node_modules/.bin}
# Verovio comes in three builds, of 27 MB: one is used.
rm "$program"/node_modules/verovio/dist/{verovio-module-hum.mjs,verovio-toolkit-wasm.js,verovio.cjs}
# The licences are in the file that each package has for them.
find "$program/node_modules" -type f \( -iname 'license*' -o -iname '*.md' -o -name '*.map' -o -name '*.d.ts' \) -delete
sed -i '1s,^#!.*,#!/usr/bin/node,' "$program/bin/brvhost-preview.js"
ln -s ../share/brvhost-preview/bin/brvhost-preview.js "$staging/usr/bin/brvhost-preview"

cp scripts/package/preview/copyright "$documents"
gzip -9n <debian/changelog >"$documents/changelog.gz"
node scripts/package/preview/manual.mjs | gzip -9n >"$manual/brvhost-preview.1.gz"

chmod 755 "$staging"
find "$staging/usr" -type f -exec chmod 644 {} +
chmod 755 "$program/bin/brvhost-preview.js"
(cd "$staging" && find usr -type f -print0 | LC_ALL=C sort -z | xargs -0 md5sum >DEBIAN/md5sums)
{
  sed '/^Architecture:/q' scripts/package/preview/control
  echo "Version: $version"
  sed -n 's/^Maintainer:/&/p' debian/control
  # In kibibytes, each file and folder rounded up.
  echo "Installed-Size: $(find "$staging/usr" -printf '%y %s\n' | awk '{ size += $1 == "f" ? int(($2 + 1023) / 1024) : 1 } END { print size }')"
  sed '1,/^Architecture:/d' scripts/package/preview/control
} >"$staging/DEBIAN/control"
find "$staging" -exec touch --no-dereference -d "@$time" {} +

mkdir -p "$folder"
SOURCE_DATE_EPOCH=$time dpkg-deb --root-owner-group -Zxz --threads-max=1 --build "$staging" "$archive" >/dev/null
echo "$archive"
