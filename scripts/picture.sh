#!/usr/bin/env bash
# Makes docs/hidden-ledger-lines.svg, with which the README opens: two measures of the piano piece as they are written, and with
# the ledger lines of the right hand hidden by brvhost.
#
#   scripts/picture.sh           makes it
#   scripts/picture.sh --check   only tells by its exit status whether it is the one that would be made
#
# Of build/release, or with the brvhost and the extension that $BRVHOST and $BRV_BUNDLE name.
set -euo pipefail
cd "$(dirname "$0")/.."

check=false
case ${1:-} in
  '') ;;
  --check) check=true ;;
  *) echo "usage: scripts/picture.sh [--check]" >&2; exit 2 ;;
esac

brvhost=${BRVHOST:-build/release/bin/brvhost}
bundle=${BRV_BUNDLE:-build/release/LegerLines.bundle}
score=samples/piano.musicxml
picture=docs/hidden-ledger-lines.svg

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
"$brvhost" run "$bundle" --item hide --staves 1 --measures 1-2 --quiet "$score" -o "$work/hidden.musicxml"
node scripts/picture/twoversions.mjs "$score" "$work/hidden.musicxml" >"$work/picture.svg"

if [ "$check" = false ]; then
  cp "$work/picture.svg" "$picture"
elif ! cmp -s "$work/picture.svg" "$picture"; then
  echo "picture: $picture is not the picture that scripts/picture.sh makes" >&2
  exit 1
fi
