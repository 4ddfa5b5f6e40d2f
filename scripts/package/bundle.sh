#!/usr/bin/env bash
# Makes LegerLines-<version>.zip, and prints its path: one bundle with the executables for macOS and for each processor of Linux,
# and how to install it. Exit status 77: this machine cannot build one of them.
#
#   scripts/package/bundle.sh FOLDER
set -euo pipefail
[ $# -eq 1 ] || { echo "usage: scripts/package/bundle.sh FOLDER" >&2; exit 2; }
folder=$(realpath -m "$1")
cd "$(dirname "$0")/../.."
. scripts/package/release.sh

archive=$folder/LegerLines-$version.zip

# The executable for Linux that a preset builds, into the bundle. Without the way to this build's libraries: a host has them loaded.
add_linux() {
  local preset=$1 image=LegerLines.bundle/Contents/$2/LegerLines.so system=$3 tool
  for tool in g++ strip; do
    command -v "$system-$tool" >/dev/null || unavailable "no bundle: no $system-$tool"
  done
  cmake --preset "$preset" -B "build/package-$preset" -DCMAKE_SKIP_BUILD_RPATH=ON -DBRV_WERROR=OFF -DBRV_BUILD_TESTS=OFF \
        -DBRV_BUILD_BENCHMARKS=OFF >/dev/null
  cmake --build "build/package-$preset" -j "$(nproc)" --target LegerLines >/dev/null
  mkdir "$staging/${image%/*}"
  "$system-strip" -o "$staging/$image" "build/package-$preset/$image"
}

command -v zip >/dev/null || unavailable "no bundle: no zip"
status=0
scripts/build-macos.sh >/dev/null || status=$?
[ "$status" -ne 77 ] || unavailable "no bundle: its executable for macOS cannot be built here"
[ "$status" -eq 0 ] || exit "$status"

staging=$(mktemp -d)
trap 'rm -rf "$staging"' EXIT
umask 022
cp -R build/macos/LegerLines.bundle "$staging"
add_linux release Linux-x86-64 x86_64-linux-gnu
add_linux arm64 Linux-arm64 aarch64-linux-gnu
cp docs/install-macos.txt "$staging/INSTALL-macOS.txt"
chmod -R u=rwX,go=rX "$staging"
find "$staging" -exec touch -d "@$time" {} +

mkdir -p "$folder"
rm -f "$archive"
(cd "$staging" && find . -mindepth 1 -printf '%P\n' | LC_ALL=C sort | TZ=UTC zip -q -X -@ "$archive")
echo "$archive"
