#!/usr/bin/env bash
# Prints how many instructions ICU's functions and the bx_ functions take on arm64, and the ratio of the two: greater is
# better. The emulator lists each instruction that it runs; times under it would show nothing.
#
#   bench/countinstructions.sh [BUILD]   the folder of the build is build/arm64 if none is named
set -euo pipefail
cd "$(dirname "$0")/.."
program=$(realpath "${1:-build/arm64}")/bench/bench-bxstringcount
fail() {
  echo "countinstructions: $*" >&2
  exit 1
}
# Without either of them nothing would ever be in the list that is waited for.
command -v qemu-aarch64-static >/dev/null || fail "no qemu-aarch64-static (package qemu-user-static)"
[ -x "$program" ] || fail "no $program, which the preset arm64 builds"

folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
mkfifo "$folder/list"
qemu-aarch64-static -singlestep -d exec,nochain -D "$folder/list" "$program" >"$folder/names" &
# The call itself, its arguments and the way back are in the counts of both.
grep -aE '^Trace ' "$folder/list" | awk '
  / BrvCountFrom$/ { counts = 1; count = 0; next }
  / BrvCountTo$/ && counts { counts = 0; print count }
  counts { ++count }' >"$folder/counts"
wait $!
paste -d ' ' - - <"$folder/counts" | paste -d '\t' "$folder/names" - | awk -F '\t' '
  { split($2, n, " "); printf "| %s: ICU / bx_ | %d | %d | %.2f |\n", $1, n[1], n[2], n[1] / n[2] }'
