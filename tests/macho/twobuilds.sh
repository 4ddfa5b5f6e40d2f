#!/usr/bin/env bash
# Builds the bundle for macOS from a copy of the sources in another folder, without anything compiled before, and compares.
#   twobuilds.sh SOURCES IMAGE
set -euo pipefail
copy=$(mktemp -d)
trap 'rm -rf "$copy"' EXIT
sources=(CMakeLists.txt cmake scripts platform BrvEDK LIB util extension)
(cd "$1" && tar -c "${sources[@]}") | tar -x -C "$copy"
"$copy/scripts/build-macos.sh" >"$copy/log" 2>&1 || { cat "$copy/log"; exit 1; }
cmp "$2" "$copy/build/macos/LegerLines.bundle/Contents/MacOS/LegerLines"
