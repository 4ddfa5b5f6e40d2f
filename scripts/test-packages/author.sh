#!/usr/bin/env bash
# In a tree of its own: makes the tutorial's extension with the installed kit, by the tutorial's commands, and checks it.
#
#   author.sh FOLDER   where the packages are
set -euo pipefail
folder=$1
cd "$(dirname "$0")/../.."

apt-get install -q -y --no-install-recommends cmake make g++ "$folder"/*"_$(dpkg --print-architecture).deb"

# The tutorial's blocks in a language.
blocks() { awk -v start="\`\`\`$1" '$0 == "```" { on = 0 } on { print } $0 == start { on = 1 }' docs/write-an-extension.md; }

work=$(mktemp -d)
blocks sh >"$work/commands"
(cd "$work" && BREVIX=/usr SCORE=$OLDPWD/samples/winds.musicxml bash -e commands) | tee "$work/output"
blocks text >"$work/report"
grep -F -x -A "$(($(wc -l <"$work/report") - 1))" "$(head -n 1 "$work/report")" "$work/output" | diff "$work/report" -

scripts/test-packages/check.sh "$work/ScoreReport/build/ScoreReport.bundle" brvhost check
