#!/usr/bin/env bash
# In a tree of its own: makes the tutorial's extensions with the installed kit, by the tutorial's commands, and checks them. Prints how
# long it takes from the installation of the packages to a checked extension of one's own.
#
#   author.sh FOLDER   where the packages are
set -euo pipefail
folder=$1
cd "$(dirname "$0")/../.."

start=$SECONDS
apt-get install -q -y --no-install-recommends cmake make g++ "$folder"/*"_$(dpkg --print-architecture).deb"

# The tutorial's blocks in a language.
blocks() { awk -v start="\`\`\`$1" '$0 == "```" { on = 0 } on { print } $0 == start { on = 1 }' docs/write-an-extension.md; }

work=$(mktemp -d)
blocks bash >"$work/commands"
(cd "$work" && BREVIX=/usr SCORE=$OLDPWD/samples/piano.musicxml bash -e commands)
seconds=$((SECONDS - start))
verdict="under three minutes"
[ "$seconds" -lt 180 ] || verdict="NOT under three minutes"
echo "test-packages: from the packages to a checked extension of one's own: $seconds seconds, $verdict"

blocks sh >"$work/commands"
(cd "$work" && BREVIX=/usr SCORE=$OLDPWD/samples/winds.musicxml bash -e commands) | tee "$work/output"
blocks text >"$work/report"
grep -F -x -A "$(($(wc -l <"$work/report") - 1))" "$(head -n 1 "$work/report")" "$work/output" | diff "$work/report" -

brvhost check "$work/ScoreReport/build/ScoreReport.bundle"
