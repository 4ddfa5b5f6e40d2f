#!/usr/bin/env bash
# Lists the files of the sources, each path ended by a null: those that git knows, and without git all but what is built.
set -euo pipefail
cd "$(dirname "$0")/.."

if [ -e .git ] && command -v git >/dev/null; then
  git ls-files -z
else
  find . \( -path ./.git -o -path ./build -o -path ./dist -o -path ./preview/node_modules \) -prune -o ! -type d -printf '%P\0'
fi | LC_ALL=C sort -z
