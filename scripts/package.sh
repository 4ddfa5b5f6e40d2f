#!/usr/bin/env bash
# Installs what is missing, and makes a release: the source archive, the bundle for macOS and Linux, the Debian packages for both
# processors and that of brvhost-preview, and SHA256SUMS over them. The same sources give the same bytes. What this machine cannot make is named on the
# standard error; the rest is made then, but is no release: there is no SHA256SUMS, and the exit status is 77.
#
#   scripts/package.sh [FOLDER]   puts the files there instead of in dist/
set -euo pipefail
folder=$(realpath -m "${1:-$(dirname "$0")/../dist}")
cd "$(dirname "$0")/.."

# What cannot be installed is named by the part that needs it.
scripts/install-dependencies.sh >&2 || true
scripts/install-dependencies.sh debhelper dpkg-dev pkgconf pkgconf:arm64 >&2 || true
scripts/install-arm64.sh >&2 || true

rm -f "$folder/SHA256SUMS"
made=()
whole=true

# Makes one part of the release.
make() {
  local status=0 paths
  paths=$("$@") || status=$?
  case $status in
    0) mapfile -t -O "${#made[@]}" made <<<"$paths" ;;
    77) whole=false ;;
    *) exit "$status" ;;
  esac
}

make scripts/package/source.sh "$folder"
make scripts/package/bundle.sh "$folder"
make scripts/package/debs.sh "$folder" amd64
make scripts/package/debs.sh "$folder" arm64
make scripts/package/preview.sh "$folder"

printf '%s\n' "${made[@]}"
if [ "$whole" = false ]; then
  echo "package: this is no release: parts of it cannot be made here" >&2
  exit 77
fi
(cd "$folder" && printf '%s\n' "${made[@]##*/}" | LC_ALL=C sort | xargs sha256sum >SHA256SUMS)
echo "$folder/SHA256SUMS"
