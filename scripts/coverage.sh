#!/usr/bin/env bash
# Builds everything so that it counts what is run, runs every test once, and prints how many lines and branches of each folder
# the tests reach; branches that only exceptions take are left out. Exit status 1: a test fails, or a folder is below its marks
# in scripts/coverage/marks.txt. What was not reached is listed in build/coverage/uncovered.txt.
#
#   scripts/coverage.sh            builds, runs the tests, and reports
#   scripts/coverage.sh --report   only reports what was counted since the last time
set -euo pipefail
cd "$(dirname "$0")/.."

case "${1-}" in
  "" | --report) ;;
  *) echo "usage: scripts/coverage.sh [--report]" >&2; exit 2 ;;
esac

build=build/coverage

build_and_test() {
  scripts/install-dependencies.sh
  cmake --preset coverage -DBRV_BUILD_TESTS=ON >/dev/null
  cmake --build --preset coverage -j "$(nproc)"
  find "$build" -name '*.gcda' -delete
  # What tests do to a process, a full disk or a limit, can keep it from writing its counts: it is to end as it would without.
  GCOV_ERROR_FILE=/dev/null ctest --preset coverage -j "$(nproc)"
}

[ "${1-}" = --report ] || build_and_test
python3 -B scripts/coverage/report.py "$build" scripts/coverage/marks.txt "$build/uncovered.txt"
