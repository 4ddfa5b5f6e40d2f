#!/usr/bin/env bash
# Makes the reference for authors of extensions: a site of the kit's headers and of docs/, which needs no server. Installs Doxygen
# where it is missing.
#
#   scripts/docs.sh [FOLDER]   puts the site there instead of in build/docs/; of a site that is there, only what begins with a
#                              dot stays, such as .git
#
# Exit status 1: Doxygen warns of something, as of a symbol without a comment; the site is there, and the warnings are printed.
# Or it cannot be made, as where a link of a document leads to no file. 2: the folder holds something else than a site.
set -euo pipefail
[[ $# -le 1 && "${1:-}" != -* ]] || { echo "usage: scripts/docs.sh [FOLDER]" >&2; exit 2; }
folder=$(realpath -m "${1:-$(dirname "$0")/../build/docs}")
cd "$(dirname "$0")/.."

command -v doxygen >/dev/null || scripts/install-dependencies.sh doxygen >&2
[ -n "${CXX:-}" ] || command -v c++ >/dev/null || scripts/install-dependencies.sh g++ >&2
command -v python3 >/dev/null || scripts/install-dependencies.sh python3 >&2

python3 -B scripts/docs/makesite.py "$folder"
echo "$folder/index.html"
