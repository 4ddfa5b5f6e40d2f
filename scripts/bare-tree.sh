#!/usr/bin/env bash
# Tries what is committed as a new user of a Debian release would: clones the sources into a tree with nothing in it but what
# every system has, runs a command there, and prints what passed. As root.
#
#   scripts/bare-tree.sh RELEASE [COMMAND]   as in: scripts/bare-tree.sh trixie "scripts/demo.sh && scripts/test.sh"
#
# That command is also what runs where none is named. Exit status: that of the command. The tree takes 8 GB in $TMPDIR (/var/tmp),
# and is removed in the end.
set -euo pipefail
cd "$(dirname "$0")/.."

case $# in
  1 | 2) ;;
  *) echo "usage: scripts/bare-tree.sh RELEASE [COMMAND]" >&2; exit 2 ;;
esac
release=$1
command=${2:-scripts/demo.sh && scripts/test.sh}

folder=$(mktemp -d "${TMPDIR:-/var/tmp}/bare-tree.XXXXXX")
# What was killed may still be ending.
remove_tree() { rm -rf --one-file-system "$folder" 2>/dev/null || { sleep 2 && rm -rf --one-file-system "$folder"; }; }
trap remove_tree EXIT

tree=$folder/tree
scripts/trees/make.sh "$release" "$tree"
git clone --quiet --no-hardlinks . "$tree/src"

# In the background, because a trap waits for what is in the foreground. It is killed, since it ignores any other end.
scripts/trees/enter.sh "$tree" bash -c "cd /src && $command" 2>&1 | tee "$folder/log" &
trap 'kill -KILL %1; exit 130' INT TERM
status=0
wait %1 || status=$?
echo "== $release: exit status $status"
sed -n -e 's/^== \([a-z]*\)$/\1:/p' -e '/tests passed/p' "$folder/log"
exit "$status"
