#!/usr/bin/env bash
# Does brvhost's main jobs with two builds, the second one for another processor, and compares what they print and what they
# write. Both run one bundle, which holds the executables of both.
#
#   scripts/arm64/same-results.sh BUILD OTHER_BUILD
set -euo pipefail
[ $# -eq 2 ] || { echo "usage: scripts/arm64/same-results.sh BUILD OTHER_BUILD" >&2; exit 2; }
build=$(realpath "$1")
other=$(realpath "$2")
cd "$(dirname "$0")/../.."
sources=$PWD

folder=$(mktemp -d)
show_and_remove() {
  local status=$?
  [ "$status" -eq 0 ] || cat "$folder"/*/printed >&2
  rm -rf "$folder"
}
trap show_and_remove EXIT
bundle=$folder/LegerLines.bundle
cp -R "$build/LegerLines.bundle" "$folder"
cp -R "$other"/LegerLines.bundle/Contents/Linux-* "$bundle/Contents"

# Prints what the jobs print; their results are in the current folder.
do_jobs() {
  local brvhost=$1 score name
  "$brvhost" items "$bundle"
  # The emulator takes its time for the largest scores.
  "$brvhost" check --no-confine --timeout 120 "$bundle"
  for score in "$sources"/samples/*.musicxml; do
    name=$(basename "$score")
    "$brvhost" info "$score"
    "$brvhost" run "$bundle" --item 0 --staves 1 --measures 1-2 --end-at 2 "$score" -o "hidden-$name"
    "$brvhost" run "$bundle" --item 1 --all "hidden-$name" -o "shown-$name"
  done
  mkdir batch
  "$brvhost" run "$bundle" --item 0 --all --jobs 2 --out-dir batch "$sources"/samples/*.musicxml
}

# In no condition: a job that fails would not end the others there.
do_jobs_in() {
  mkdir "$folder/$1"
  cd "$folder/$1"
  do_jobs "$2" >printed 2>&1
}
do_jobs_in first "$build/bin/brvhost"
do_jobs_in second "$other/tests/emulated/brvhost"
diff -r "$folder/first" "$folder/second"
echo "The main jobs print and write the same on the samples."
python3 "$sources/tests/macho/samebytes.py" "$build/bin/brvhost" "$bundle" "$other/tests/emulated/brvhost" "$bundle" "$sources"
