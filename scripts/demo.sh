#!/usr/bin/env bash
# Installs what is missing, builds the extension, and shows what a host gets from it, in the user's language and in Japanese.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/install-dependencies.sh
cmake --preset release -DBRV_BUILD_TESTS=OFF -DBRV_BUILD_BENCHMARKS=OFF >/dev/null
cmake --build --preset release -j "$(nproc)" --target LegerLines smallhost

bundle=build/release/LegerLines.bundle
echo
echo "== $bundle in your language"
build/release/bin/smallhost "$bundle"
echo
echo "== and in Japanese"
LANGUAGE=ja build/release/bin/smallhost "$bundle"
