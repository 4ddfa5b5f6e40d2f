#!/usr/bin/env bash
# Runs clang-tidy with .clang-tidy on what changed, and prints what it finds. Exit status 1: it found something.
#
#   scripts/check-tidy.sh          what differs from the merge base with the main branch, or on that branch itself from its
#                                  previous state: source files, and headers by way of a file that includes them;
#                                  nothing where there is none, as in sources without git
#   scripts/check-tidy.sh BASE     what differs from that commit
#   scripts/check-tidy.sh --all    everything: some minutes
#
# The checks are those of clang-tidy 14 (Debian 12). Other versions have others, and are not asked.
set -euo pipefail
cd "$(dirname "$0")/.."

find_tidy() {
  local name
  for name in clang-tidy-14 clang-tidy; do
    if command -v "$name" >/dev/null && "$name" --version | grep -q 'version 14\.'; then
      echo "$name"
      return
    fi
  done
}

# The commit to compare with; nothing where there is none.
find_base() {
  local branch base
  for branch in origin/HEAD origin/main main origin/master master; do
    base=$(git merge-base HEAD "$branch" 2>/dev/null) || continue
    [ "$base" != "$(git rev-parse HEAD)" ] || base=$(git rev-parse --verify --quiet HEAD^1) || return 0
    echo "$base"
    return
  done
}

# The source files among those on standard input, and for each header among them one file that includes it, if only by way of
# other headers.
units_of() {
  local pending file name including
  declare -A seen
  mapfile -t pending
  while [ ${#pending[@]} -gt 0 ]; do
    file=${pending[0]}
    pending=("${pending[@]:1}")
    [ -z "${seen[$file]:-}" ] || continue
    seen[$file]=1
    case $file in
      *.cpp) [ ! -f "$file" ] || echo "$file" ;;
      *.h | *.inc)
        name=${file##*/}
        including=$(git grep -lE "^#include [\"<](.*/)?${name//./\\.}[\">]" -- '*.h' '*.cpp' '*.inc' | LC_ALL=C sort -t. -k2,2 | head -1)
        [ -z "$including" ] || pending+=("$including")
        ;;
    esac
  done
}

tidy=$(find_tidy)
if [ -z "$tidy" ]; then
  echo "check-tidy: clang-tidy 14 is not installed: nothing is checked"
  exit 0
fi
base=
if [ "${1:-}" != --all ]; then
  base=${1:-$(find_base)}
  if [ -z "$base" ]; then
    echo "check-tidy: no earlier state to compare with: nothing is checked; --all checks everything"
    exit 0
  fi
fi
cmake --preset clang -B build/tidy -DBRV_BUILD_TESTS=ON -DBRV_FUZZ=ON -DBRV_BUILD_BENCHMARKS=ON -DBRV_MACOS_TESTS=ON >/dev/null

compiled=$(sed -n "s|^  \"file\": \"$PWD/\(.*\)\".*|\1|p" build/tidy/compile_commands.json | grep -v '^build/' | LC_ALL=C sort -u)
if [ -z "$base" ]; then
  units=$compiled
else
  # What was only moved has not changed.
  changed=$(git diff --name-status -M "$base" | awk -F"\t" '$1 != "R100" && $1 != "D" { print $NF }' &&
            git ls-files --others --exclude-standard)
  units=$(units_of <<<"$changed" | LC_ALL=C sort -u | LC_ALL=C comm -12 - <(echo "$compiled"))
fi
if [ -z "$units" ]; then
  echo "No source has changed since $(git rev-parse --short "$base")."
  exit 0
fi
echo "$(wc -l <<<"$units") files"
tr '\n' '\0' <<<"$units" | xargs -0 -P "$(nproc)" -n 1 "$tidy" -p build/tidy --quiet 2>&1 |
  { grep -v '^[0-9]* warnings\? \(and [0-9]* errors\? \)\?generated\.$' || true; } || exit 1
