#!/usr/bin/env bash
# Installs what building and testing need and what is not there yet, from the distribution's packages; with arguments, the
# packages that they name instead. A package of another architecture is named with it, as in libicu-dev:arm64.
# For Debian 12 and 13; as root, or with sudo.
set -euo pipefail

packages=(
  cmake make ninja-build g++ clang clang-format clang-tidy pkg-config binutils xz-utils python3
  libgtest-dev libgmock-dev libbenchmark-dev librapidcheck-dev
  libplist-dev libicu-dev lld llvm libc++1 zip zsh python3-jsonschema parallel jq abigail-tools
  libexpat1-dev libzip-dev libdeflate-dev libseccomp-dev libfmt-dev libcli11-dev
  doxygen
)
[ $# -eq 0 ] || packages=("$@")

missing=()
# npm fetches the toolchain for macOS; wherever it came from, one is enough.
if [ $# -eq 0 ] && ! command -v npm >/dev/null; then missing+=(npm); fi
# A name may be that of packages of several architectures.
architecture=$(dpkg --print-architecture)
for package in "${packages[@]}"; do
  [[ "$package" == *:* ]] && wanted=${package#*:} || wanted=$architecture
  status=$(dpkg-query -W -f '${Architecture} ${db:Status-Status}\n' "$package" 2>/dev/null || true)
  grep -Eq "^($wanted|all) installed\$" <<<"$status" || missing+=("$package")
done
[ ${#missing[@]} -gt 0 ] || exit 0

as_root=()
if [ "$(id -u)" -ne 0 ]; then
  command -v sudo >/dev/null || { echo "install-dependencies: needs root or sudo to install: ${missing[*]}" >&2; exit 1; }
  as_root=(sudo)
fi
echo "Installing: ${missing[*]}"
for package in "${missing[@]}"; do
  [[ "$package" != *:* ]] || "${as_root[@]}" dpkg --add-architecture "${package#*:}"
done
log=$(mktemp)
trap 'rm -f "$log"' EXIT
export DEBIAN_FRONTEND=noninteractive
if ! { "${as_root[@]}" apt-get update -q &&
       "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
         apt-get install -y -q --no-install-recommends "${missing[@]}"; } >"$log" 2>&1; then
  cat "$log" >&2
  echo "install-dependencies: could not install: ${missing[*]}" >&2
  exit 1
fi
