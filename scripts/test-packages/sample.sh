# shellcheck shell=bash
# A run of an installed brvhost; sourced by bash in the root folder of the sources.

bundle=/usr/lib/brvhost/LegerLines.bundle

# Hides and shows the ledger lines of a sample with a command: the result has to be the sample, byte for byte.
run_sample() {
  local work=$1 sample=samples/piano.musicxml
  shift
  rm -f "$work"/{hidden,shown}.musicxml
  "$@" run "$bundle" --item 0 --all "$sample" -o "$work/hidden.musicxml"
  if cmp -s "$sample" "$work/hidden.musicxml"; then
    echo "test-packages: nothing was hidden" >&2
    return 1
  fi
  "$@" run "$bundle" --item 1 --all "$work/hidden.musicxml" -o "$work/shown.musicxml"
  cmp "$sample" "$work/shown.musicxml"
}
