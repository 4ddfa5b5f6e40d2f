#!/usr/bin/env bash
# In a tree of its own: installs what the packages are built with, builds them for both processors, those for this one twice, and
# has them checked by lintian.
#
#   build.sh FOLDER   where the packages go
set -euo pipefail
folder=$1
cd "$(dirname "$0")/../.."

# Builds all that is for this processor. Another build, in folders of other names, must give the same bytes.
build() {
  scripts/package/debs.sh "$1" "$(dpkg --print-architecture)"
  scripts/package/preview.sh "$1"
}
build_twice() {
  local again
  again=$(mktemp -d)
  build "$folder"
  build "$again" >/dev/null
  diff -r "$folder" "$again"
}

apt-get update -q
apt-get install -q -y --no-install-recommends dpkg-dev lintian npm
apt-get build-dep -q -y --no-install-recommends ./
build_twice

dpkg --add-architecture arm64
apt-get update -q
apt-get install -q -y --no-install-recommends crossbuild-essential-arm64
apt-get build-dep -q -y --no-install-recommends -aarm64 -Pcross ./
scripts/package/debs.sh "$folder" arm64

sources=$(mktemp -d)
(cd "$sources" && dpkg-source --build "$OLDPWD")
lintian --allow-root --info --fail-on error,warning "$folder"/*.deb "$sources"/*.dsc
