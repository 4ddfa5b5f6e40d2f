#!/usr/bin/env bash
# Builds the Debian packages in a bare tree of each release and tries them in another: installs, runs, upgrades and removes them,
# and builds an extension with them, for both processors. Leaves them in build/packages/<release>. As root, on x86-64;
# takes 10 minutes or more for a release.
#
#   scripts/test-packages.sh [--built] [RELEASE...]   releases as Debian names them, else bookworm and trixie
#                                                     --built: tries the packages that the last run has left
#
# The trees in which something was done stay in ${XDG_CACHE_HOME:-~/.cache}/legerlines/trees, beside the bare ones.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/package/release.sh

build=true
case ${1:-} in
  --built) build=false; shift ;;
  -*) echo "usage: scripts/test-packages.sh [--built] [RELEASE...]" >&2; exit 2 ;;
esac
scripts/install-dependencies.sh xz-utils
releases=("$@")
[ $# -gt 0 ] || releases=(bookworm trixie)

trees=${XDG_CACHE_HOME:-$HOME/.cache}/legerlines/trees

# Runs a script of the sources in a tree.
in_tree() {
  local tree=$1 script=$2
  scripts/trees/enter.sh "$tree" env LC_ALL=C.UTF-8 DEBIAN_FRONTEND=noninteractive \
    "/legerlines-$version/scripts/test-packages/$script.sh" /packages
}

# A new tree, with the sources in /legerlines-<version> and the packages in /packages.
make_tree() {
  local release=$1 tree=$2
  scripts/trees/make.sh "$release" "$tree"
  tar -xJf "$(scripts/package/source.sh build/packages)" -C "$tree"
  mkdir "$tree/packages"
}

for release in "${releases[@]}"; do
  packages=build/packages/$release
  if [ "$build" = true ]; then
    echo "== $release: building"
    tree=$trees/$release-build
    make_tree "$release" "$tree"
    in_tree "$tree" build
    rm -rf "$packages"
    cp -r "$tree/packages" "$packages"
  fi
  compgen -G "$packages/*.deb" >/dev/null || { echo "test-packages: no packages in $packages" >&2; exit 1; }
  echo "== $release: using"
  tree=$trees/$release-use
  make_tree "$release" "$tree"
  cp "$packages"/*.deb "$tree/packages"
  for part in install author arm64; do
    in_tree "$tree" "$part"
  done
done
