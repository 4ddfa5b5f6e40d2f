#!/usr/bin/env bash
# Makes the Debian packages for a processor, and prints their paths. They are for the release of Debian that this runs on, and
# their version names it. Exit status 77: this system cannot build them.
#
#   scripts/package/debs.sh FOLDER PROCESSOR   PROCESSOR as Debian names it: amd64, arm64
set -euo pipefail
[ $# -eq 2 ] || { echo "usage: scripts/package/debs.sh FOLDER PROCESSOR" >&2; exit 2; }
folder=$(realpath -m "$1")
processor=$2
cd "$(dirname "$0")/../.."
. scripts/package/release.sh

command -v dpkg-buildpackage >/dev/null || unavailable "no packages for $processor: no dpkg-buildpackage (package dpkg-dev)"
profiles=
[ "$(dpkg --print-architecture)" = "$processor" ] || profiles=cross
system=$(dpkg-architecture "-a$processor" -qDEB_HOST_GNU_TYPE 2>/dev/null) ||
  unavailable "no packages for $processor: Debian has no such processor"
compiler=$system-g++
command -v "$compiler" >/dev/null || unavailable "no packages for $processor: no $compiler"
missing=$(dpkg-checkbuilddeps "-a$processor" "-P$profiles" debian/control 2>&1) ||
  unavailable "no packages for $processor: ${missing#*error: }"

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
sources=$(scripts/package/source.sh "$work")
tar -xJf "$sources" -C "$work"
if ! (cd "$work/legerlines-$version" &&
      SOURCE_DATE_EPOCH=$time DEB_BUILD_OPTIONS="noautodbgsym parallel=$(nproc)" \
        dpkg-buildpackage "-a$processor" -us -uc -b "-P$profiles") >"$work/log" 2>&1; then
  cat "$work/log" >&2
  echo "package: the packages for $processor cannot be built" >&2
  exit 1
fi
mkdir -p "$folder"
mv "$work"/*.deb "$folder"
sed -n 's/^ [0-9a-f]\{64\} [0-9]* \(.*\.deb\)$/\1/p' "$work"/*.changes | while read -r name; do echo "$folder/$name"; done
