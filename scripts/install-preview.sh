#!/usr/bin/env bash
# Installs what brvhost-preview needs and what is not there yet: Node from the distribution's packages, and the packages that
# preview/package-lock.json names, by npm, into preview/node_modules.
#
#   scripts/install-preview.sh
#
# Exit status 77: it cannot be had here.
set -euo pipefail
cd "$(dirname "$0")/.."

unavailable() {
  echo "install-preview: $*" >&2
  exit 77
}

lock=preview/package-lock.json
# A copy of the lock file from which the packages were installed, made when they all were.
installed=preview/node_modules/.installed.json

missing=()
command -v node >/dev/null || missing+=(nodejs)
cmp -s "$lock" "$installed" || command -v npm >/dev/null || missing+=(npm)
if [ ${#missing[@]} -gt 0 ]; then
  scripts/install-dependencies.sh "${missing[@]}" || unavailable "cannot install ${missing[*]}"
fi
oldest=v18.17
printf '%s\n' "$oldest" "$(node --version)" | sort --version-sort --check=silent ||
  unavailable "Node $(node --version) is older than $oldest"
cmp -s "$lock" "$installed" && exit 0

rm -f "$installed"
echo "Installing the packages of $lock"
log=$(mktemp)
trap 'rm -f "$log"' EXIT
if ! timeout 600 npm ci --prefix preview --omit=dev --ignore-scripts --no-audit --no-fund >"$log" 2>&1; then
  grep '^npm err' --ignore-case --max-count=3 "$log" >&2 || true
  unavailable "npm cannot install the packages of $lock"
fi
cp "$lock" "$installed"
