#!/usr/bin/env bash
# On a Mac with the command-line developer tools, CMake and Ninja: builds the bundle against the system's frameworks, and looks at
# its parts with the system's tools. The tests of the kit run on Linux.
set -euo pipefail
cd "$(dirname "$0")/.."
[ "$(uname)" = Darwin ] || { echo "test-mac: this is no Mac; scripts/test.sh tests here" >&2; exit 2; }

cmake --preset macos
cmake --build --preset macos
contents=build/macos/LegerLines.bundle/Contents
lipo "$contents/MacOS/LegerLines" -verify_arch x86_64 arm64
plutil -lint "$contents/Info.plist" "$contents"/Resources/*.lproj/Localizable.strings
