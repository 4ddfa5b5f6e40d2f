#!/usr/bin/env bash
# Installs what is missing, builds the extension and the headless host, hides the ledger lines in a region of a piano piece,
# shows what changed, shows them again, and makes a page with the piece before and after. What is made is left in build/demo/.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/install-dependencies.sh
cmake --preset release -DBRV_WERROR=OFF -DBRV_BUILD_TESTS=OFF -DBRV_BUILD_BENCHMARKS=OFF >/dev/null
cmake --build --preset release -j "$(nproc)" --target LegerLines brvhost

brvhost=build/release/bin/brvhost
bundle=build/release/LegerLines.bundle
score=samples/piano.musicxml
mkdir -p build/demo

# Prints a command as a reader would type it, and runs it.
show() {
  echo
  echo "\$ $*"
  "$@"
}

show "$brvhost" items "$bundle"
show "$brvhost" info "$score"
show "$brvhost" run "$bundle" --item hide --staves 1 --measures 1-2 --end-at 2 "$score" -o build/demo/hidden.musicxml
echo
echo "\$ diff $score build/demo/hidden.musicxml"
diff "$score" build/demo/hidden.musicxml | grep '^[0-9>]' | head -n 6 || true
changed=$(diff "$score" build/demo/hidden.musicxml | grep -c '^>' || true)
echo "... $changed lines differ in all"
show "$brvhost" run "$bundle" --item show --all build/demo/hidden.musicxml -o build/demo/shown.musicxml
cmp "$score" build/demo/shown.musicxml
echo "build/demo/shown.musicxml is $score again, byte for byte."

status=0
scripts/install-preview.sh || status=$?
case $status in
  0)
    page=build/demo/piano.html
    show preview/bin/brvhost-preview.js build/demo/hidden.musicxml --before "$score" -o "$page"
    echo "To see the piece before and after, open $PWD/$page in a browser."
    ;;
  77) echo "There is no page that shows the piece before and after: what draws it cannot be installed." ;;
  *) exit "$status" ;;
esac
