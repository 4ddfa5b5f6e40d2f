#!/usr/bin/env bash
# Makes the source archive, legerlines-<version>.tar.xz, and prints its path. Exit status 77: nothing packs it here.
#
#   scripts/package/source.sh FOLDER
set -euo pipefail
[ $# -eq 1 ] || { echo "usage: scripts/package/source.sh FOLDER" >&2; exit 2; }
folder=$(realpath -m "$1")
cd "$(dirname "$0")/../.."
. scripts/package/release.sh

command -v xz >/dev/null || unavailable "no source archive: no xz (package xz-utils)"
archive=$folder/legerlines-$version.tar.xz
mkdir -p "$folder"
# One that is not whole must not be taken for one.
trap 'rm -f "$archive"' EXIT
# One thread: the bytes do not depend on how many processors there are.
scripts/files.sh |
  tar --create --no-recursion --null --verbatim-files-from --files-from=- --format=ustar --transform="s,^,legerlines-$version/," \
      --owner=0 --group=0 --numeric-owner --mode=u=rwX,go=rX --mtime="@$time" |
  xz --threads=1 -9 >"$archive"
trap - EXIT
echo "$archive"
