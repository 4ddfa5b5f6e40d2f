#!/usr/bin/env bash
# Checks that every source file is as .clang-format says, and prints each that differs. Exit status 1: some do.
#
#   scripts/check-format.sh [FOLDER]   checks the files of that folder instead of this tree's
#
# clang-format 14 (Debian 12) and 19 (Debian 13) agree on this tree; where both are installed, both are asked. Other versions
# may see some lines differently and are not asked: with none of the two nothing is checked.
set -euo pipefail
cd "${1:-$(dirname "$0")/..}"

# The program of a version, under its own name or as the one that is installed without a version in its name.
program_of_version() {
  local name
  for name in "clang-format-$1" clang-format; do
    if command -v "$name" >/dev/null && "$name" --version | grep -q "version $1\."; then
      echo "$name"
      return
    fi
  done
}

programs=()
for version in 14 19; do
  program=$(program_of_version "$version")
  [ -z "$program" ] || programs+=("$program")
done
if [ ${#programs[@]} -eq 0 ]; then
  echo "check-format: neither clang-format 14 nor 19 is installed: the format is not checked"
  exit 0
fi

mapfile -d '' files < <(find . \( -path ./build -o -path ./dist -o -path './.?*' \) -prune -o \
                             -type f \( -name '*.h' -o -name '*.cpp' -o -name '*.inc' \) -print0 | LC_ALL=C sort -z)
[ ${#files[@]} -gt 0 ] || { echo "check-format: no source files in $PWD" >&2; exit 1; }

status=0
for program in "${programs[@]}"; do
  if ! report=$("$program" --style=file --dry-run --Werror "${files[@]}" 2>&1); then
    status=1
    # A file is named for each place in it; -i makes it as it should be.
    different=$(sed -n 's/^\(.*\):[0-9]*:[0-9]*: error: code should be clang-formatted.*/\1/p' <<<"$report" | LC_ALL=C sort -u)
    [ -z "$different" ] && echo "$report" || sed "s|^\./\(.*\)|\1 is not as $program -i makes it|" <<<"$different"
  fi
done
exit "$status"
