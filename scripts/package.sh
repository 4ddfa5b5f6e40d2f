#!/usr/bin/env bash
# Makes dist/LegerLines-<version>.zip: one bundle with the executables for macOS and Linux, and how to install it. The same
# sources give the same bytes. Exit status 77: the toolchain for macOS cannot be had.
#
#   scripts/package.sh [FOLDER]   puts the archive there instead of in dist/
set -euo pipefail
folder=$(realpath -m "${1:-$(dirname "$0")/../dist}")
cd "$(dirname "$0")/.."

version=$(sed -n 's/^project(LegerLines VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)
archive=$folder/LegerLines-$version.zip
# The time that the files in the archive bear.
time=${SOURCE_DATE_EPOCH:-$(git log -1 --format=%ct 2>/dev/null || echo 946684800)}

scripts/build-macos.sh >/dev/null
# Without the way to this build's libraries: a host has them loaded.
cmake --preset release -B build/package -DCMAKE_SKIP_BUILD_RPATH=ON -DBRV_WERROR=OFF -DBRV_BUILD_TESTS=OFF \
      -DBRV_BUILD_BENCHMARKS=OFF >/dev/null
cmake --build build/package -j "$(nproc)" --target LegerLines >/dev/null

staging=$(mktemp -d)
trap 'rm -rf "$staging"' EXIT
umask 022
cp -R build/macos/LegerLines.bundle "$staging"
linux=LegerLines.bundle/Contents/Linux-x86-64
mkdir "$staging/$linux"
strip -o "$staging/$linux/LegerLines.so" "build/package/$linux/LegerLines.so"
cp docs/install-macos.txt "$staging/INSTALL-macOS.txt"
chmod -R u=rwX,go=rX "$staging"
find "$staging" -exec touch -d "@$time" {} +

mkdir -p "$folder"
rm -f "$archive"
(cd "$staging" && find . -mindepth 1 -printf '%P\n' | LC_ALL=C sort | TZ=UTC zip -q -X -@ "$archive")
echo "$archive"
