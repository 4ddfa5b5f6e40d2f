#!/usr/bin/env bash
# Installs what is missing, checks the format of all sources and what clang-tidy finds in those that changed, builds everything,
# and runs every test: the bridge as clang++ compiles it, what uses threads with the thread sanitizer, then all of it with the
# other sanitizers, then all of it as it is shipped: the bundle for Linux, and the bytes of that for macOS.
set -euo pipefail
# Tests choose their languages by LANGUAGE, which does not count in the locale C.
export LC_ALL=C.UTF-8
cd "$(dirname "$0")/.."

scripts/install-dependencies.sh

# The thread sanitizer of older compilers does not start where the system spreads its random addresses too far.
with_fixed_addresses=(setarch "$(uname -m)" --addr-no-randomize)
"${with_fixed_addresses[@]}" true 2>/dev/null || with_fixed_addresses=()

# The commands of one preset; $1 is its name, the rest are arguments of the build.
build_and_test() {
  local preset=$1
  shift
  local run=()
  [ "$preset" != tsan ] || run=("${with_fixed_addresses[@]}")
  echo "== $preset"
  cmake --preset "$preset" -DBRV_BUILD_TESTS=ON >/dev/null
  "${run[@]}" cmake --build --preset "$preset" -j "$(nproc)" "$@"
  "${run[@]}" ctest --preset "$preset" -j "$(nproc)"
}

# Runs a command, whose status 77 is that tests have to be skipped: those of $1.
if_it_can_be_had() {
  local what=$1 status=0
  shift
  "$@" || status=$?
  [ "$status" -ne 77 ] || { echo "The tests of $what are skipped."; return 0; }
  return "$status"
}

echo "== format"
scripts/check-format.sh

echo "== tidy"
scripts/check-tidy.sh

echo "== macos"
if_it_can_be_had "the bundle for macOS" scripts/build-macos.sh -DBRV_WERROR=ON

echo "== preview"
if_it_can_be_had brvhost-preview scripts/install-preview.sh
scripts/install-dependencies.sh chromium librsvg2-bin poppler-utils ||
  echo "The tests that look at its pages and pictures are skipped."

build_and_test clang --target bridge-tests
build_and_test tsan
build_and_test asan
build_and_test release
