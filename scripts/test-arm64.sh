#!/usr/bin/env bash
# Installs what is missing, builds everything for Linux on arm64, and runs it under the emulator: every test but those that
# scripts/arm64/not-run.txt lists, and brvhost's main jobs beside a brvhost for this machine, which must write the same bytes.
#
#   scripts/test-arm64.sh --quick   builds and runs only those tests that look at what differs between processors
#   scripts/test-arm64.sh --units   leaves out the tests of brvhost as a program, which take two thirds of the time
set -euo pipefail
cd "$(dirname "$0")/.."

mode=${1-}
case $mode in
  "" | --quick | --units) ;;
  *) echo "usage: scripts/test-arm64.sh [--quick | --units]" >&2; exit 2 ;;
esac
list=scripts/arm64/not-run.txt
# Blocks of units, arguments of any number, bytes with their highest bit, and calls between host and extension.
quick_tests=(unitblocks-tests bxstring-tests portable-tests platform-tests bridge-calls)

scripts/install-dependencies.sh
scripts/install-arm64.sh

# The names in the list: those of whole tests, or those after a colon.
whole_tests() { sed -nE 's/^([^#: ]+) .*/\1/p' "$list"; }
parts_of_tests() { sed -nE 's/^[^#: ]+:([^ ]+) .*/\1/p' "$list"; }

# A name in the list that is no test's any more would go unnoticed.
check_list() {
  local known name
  known=$(ctest --preset arm64 -N)
  for name in $(whole_tests); do
    # Without the toolchain for macOS one test takes the place of all of that image.
    if [[ $name == macho.* ]] && grep -q ': macho\.TheBundleForMacOSIsTested$' <<<"$known"; then continue; fi
    grep -q ": $name\$" <<<"$known" || { echo "$list: there is no test $name" >&2; return 1; }
  done
  for name in $(parts_of_tests); do
    grep -rqw "${name##*.}" tests/host/program tests/examples --include='*_test.py' ||
      { echo "$list: there is no test $name" >&2; return 1; }
  done
}

echo "== arm64"
cmake --preset arm64 -DBRV_BUILD_TESTS=ON >/dev/null
if [ "$mode" = --quick ]; then
  cmake --build --preset arm64 -j "$(nproc)" --target "${quick_tests[@]}" LegerLines emulated-brvhost
  for name in "${quick_tests[@]}"; do
    qemu-aarch64-static "build/arm64/tests/$name" --gtest_brief=1 --gtest_filter='-*DeathTest*'
  done
  export BRV_SHARED_DIR=/nowhere  # the samples alone
else
  cmake --build --preset arm64 -j "$(nproc)"
  check_list
  excluded="^($(whole_tests | sed 's/\./\\./g' | paste -sd '|'))\$"
  [ "$mode" != --units ] || excluded+='|^(macho\.)?brvhost\.'
  BRV_NOT_RUN=$(parts_of_tests) ctest --preset arm64 -j "$(nproc)" -E "$excluded"
fi

echo "== arm64 beside $(uname -m)"
cmake --preset release -DBRV_BUILD_TESTS=ON >/dev/null
cmake --build --preset release -j "$(nproc)" --target brvhost LegerLines
scripts/arm64/same-results.sh build/release build/arm64

[ "$mode" = --quick ] || { echo "Not run here:" && sed -nE 's/^([^#])/  \1/p' "$list"; }
