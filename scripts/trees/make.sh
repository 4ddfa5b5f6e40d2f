#!/usr/bin/env bash
# Makes a tree of a Debian release with nothing in it but what every system has. As root; installs debootstrap where it is
# missing. The mirror is the machine's own.
#
#   scripts/trees/make.sh RELEASE TREE   RELEASE as Debian names it: bookworm, trixie; a TREE that is there is replaced
#
# What debootstrap has made is kept in ${XDG_CACHE_HOME:-~/.cache}/legerlines/trees, and copied from then on.
set -euo pipefail
[ $# -eq 2 ] || { echo "usage: scripts/trees/make.sh RELEASE TREE" >&2; exit 2; }
release=$1
tree=$(realpath -m "$2")
cd "$(dirname "$0")/../.."

fail() {
  echo "trees: $*" >&2
  exit 2
}

[[ $release =~ ^[a-z]+$ ]] || fail "no release of Debian has the name $release"
[ "$(id -u)" -eq 0 ] || fail "a tree needs root"
scripts/install-dependencies.sh debootstrap
base=${XDG_CACHE_HOME:-$HOME/.cache}/legerlines/trees/$release
if [ ! -d "$base" ]; then
  mirror=$(apt-get indextargets --format '$(SITE)' 'Identifier: Packages' 'Label: Debian' 'Component: main' | sed -n 1p)
  [ -n "$mirror" ] || fail "no mirror of Debian in apt's sources"
  mkdir -p "${base%/*}"
  new=$(mktemp -d "$base.XXXXXX")
  trap 'rm -rf --one-file-system "$new" "$new.log"' EXIT
  if ! debootstrap --variant=minbase "$release" "$new" "$mirror" >"$new.log" 2>&1; then
    tail -n 5 "$new.log" >&2
    fail "debootstrap could not make a tree of $release"
  fi
  chmod 755 "$new"
  # Another run may have been faster.
  mv -T "$new" "$base" 2>/dev/null || [ -d "$base/usr" ]
fi
rm -rf --one-file-system "$tree"
cp -a "$base" "$tree"
