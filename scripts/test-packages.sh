#!/usr/bin/env bash
# Builds the Debian packages in a bare tree of each release and tries them in another: installs, runs, upgrades and removes them,
# and builds an extension with them, for both processors. Leaves them in build/packages/<release>. As root, on x86-64;
# takes 10 minutes or more for a release.
#
#   scripts/test-packages.sh [--built] [RELEASE...]   releases as Debian names them, else bookworm and trixie
#                                                     --built: tries the packages that the last run has left
#
# Bare trees are kept in ${XDG_CACHE_HOME:-~/.cache}/legerlines/trees; those in which something was done are beside them.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/package/release.sh

build=true
if [ "${1:-}" = --built ]; then
  build=false
  shift
fi
[ "$(id -u)" -eq 0 ] || { echo "test-packages: needs root for its trees" >&2; exit 1; }
scripts/install-dependencies.sh debootstrap xz-utils
releases=("$@")
[ $# -gt 0 ] || releases=(bookworm trixie)

trees=${XDG_CACHE_HOME:-$HOME/.cache}/legerlines/trees
enter=scripts/test-packages/enter.sh

# A new tree, with the sources in /legerlines-<version> and the packages in /packages.
make_tree() {
  local release=$1 tree=$2
  if [ ! -d "$trees/$release" ]; then
    mkdir -p "$trees"
    rm -rf --one-file-system "$trees/$release.new"
    debootstrap --variant=minbase "$release" "$trees/$release.new" >&2
    mv "$trees/$release.new" "$trees/$release"
  fi
  rm -rf --one-file-system "$tree"
  cp -a "$trees/$release" "$tree"
  tar -xJf "$(scripts/package/source.sh build/packages)" -C "$tree"
  mkdir "$tree/packages"
}

for release in "${releases[@]}"; do
  packages=build/packages/$release
  if [ "$build" = true ]; then
    echo "== $release: building"
    tree=$trees/$release-build
    make_tree "$release" "$tree"
    "$enter" "$tree" "/legerlines-$version/scripts/test-packages/build.sh" /packages
    rm -rf "$packages"
    cp -r "$tree/packages" "$packages"
  fi
  compgen -G "$packages/*.deb" >/dev/null || { echo "test-packages: no packages in $packages" >&2; exit 1; }
  echo "== $release: using"
  tree=$trees/$release-use
  make_tree "$release" "$tree"
  cp "$packages"/*.deb "$tree/packages"
  for part in install author arm64; do
    "$enter" "$tree" "/legerlines-$version/scripts/test-packages/$part.sh" /packages
  done
done
