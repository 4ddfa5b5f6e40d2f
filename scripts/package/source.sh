#!/usr/bin/env bash
# Makes the source archive, legerlines-<version>.tar.xz, and prints its path.
#
#   scripts/package/source.sh FOLDER
set -euo pipefail
[ $# -eq 1 ] || { echo "usage: scripts/package/source.sh FOLDER" >&2; exit 2; }
folder=$(realpath -m "$1")
cd "$(dirname "$0")/../.."
. scripts/package/release.sh

archive=$folder/legerlines-$version.tar.xz
mkdir -p "$folder"
# One thread: the bytes do not depend on how many processors there are.
scripts/files.sh |
  tar --create --no-recursion --null --verbatim-files-from --files-from=- --format=ustar --transform="s,^,legerlines-$version/," \
      --owner=0 --group=0 --numeric-owner --mode=u=rwX,go=rX --mtime="@$time" |
  xz --threads=1 -9 >"$archive"
echo "$archive"
