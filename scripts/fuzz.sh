#!/usr/bin/env bash
# Installs what is missing, builds the fuzz targets with clang, and runs each for some seconds, one after another. Prints how many
# inputs each has tried. Exit status 1: some property did not hold; the input is in build/fuzz/found, and
# build/fuzz/fuzz/fuzz-TARGET FILE tries it again.
#
#   scripts/fuzz.sh [SECONDS] [TARGET]   60 seconds for each, or for that target alone
#
# What is learned is kept in build/fuzz/corpus, where the next run goes on.
set -euo pipefail
cd "$(dirname "$0")/.."

seconds=${1:-60}
case $seconds in
  *[!0-9]* | "") echo "usage: scripts/fuzz.sh [SECONDS] [TARGET]" >&2; exit 2 ;;
esac

scripts/install-dependencies.sh
scripts/install-dependencies.sh "libclang-rt-$(clang -dumpversion | cut -d . -f 1)-dev"  # libFuzzer
cmake --preset fuzz -DBRV_BUILD_TESTS=ON >/dev/null
cmake --build --preset fuzz -j "$(nproc)" --target fuzz-targets

programs=build/fuzz/fuzz
targets=("$programs/fuzz-${2:-}")
[ $# -ge 2 ] || targets=("$programs"/fuzz-*)
mkdir -p build/fuzz/found

status=0
for program in "${targets[@]}"; do
  target=${program##*/fuzz-}
  [ -x "$program" ] || { echo "fuzz: there is no target $target" >&2; exit 2; }
  learned=build/fuzz/corpus/$target
  log=build/fuzz/found/$target.log
  mkdir -p "$learned"
  arguments=("-max_total_time=$seconds" -timeout=25 -print_final_stats=1 "-artifact_prefix=build/fuzz/found/$target-")
  dictionary=fuzz/dictionaries/$target.dict
  [ ! -f "$dictionary" ] || arguments+=("-dict=$dictionary")
  if "$program" "${arguments[@]}" "$learned" "fuzz/corpus/$target" >"$log" 2>&1; then
    verdict="nothing found"
  else
    verdict="FAILED: $log"
    status=1
  fi
  executions=$(sed -n 's/^stat::number_of_executed_units: *//p' "$log")
  a_second=$(sed -n 's/^stat::average_exec_per_sec: *//p' "$log")
  printf '%-14s %11s executions, %6s a second: %s\n' "$target" "${executions:-?}" "${a_second:-?}" "$verdict"
done
exit "$status"
