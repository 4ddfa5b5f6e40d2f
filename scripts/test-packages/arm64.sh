#!/usr/bin/env bash
# In a tree of its own: builds an extension for arm64 with the cross compiler and the kit for that processor, beside that for this
# one, and runs and checks it, and LegerLines, with the brvhost for arm64, under the emulator.
#
#   arm64.sh FOLDER   where the packages are
set -euo pipefail
folder=$1
cd "$(dirname "$0")/../.."
. scripts/test-packages/sample.sh

dpkg --add-architecture arm64
apt-get update -q
apt-get install -q -y --no-install-recommends cmake make g++-aarch64-linux-gnu qemu-user-static file "$folder"/*_arm64.deb \
  "$folder"/lib*_amd64.deb

work=$(mktemp -d)
cmake -S examples/ScoreReport -B "$work/build" -DCMAKE_SYSTEM_NAME=Linux -DCMAKE_SYSTEM_PROCESSOR=aarch64 \
      -DCMAKE_CXX_COMPILER=aarch64-linux-gnu-g++
cmake --build "$work/build"
file "$work/build/ScoreReport.bundle/Contents/Linux-arm64/ScoreReport.so" | grep aarch64

brvhost=(qemu-aarch64-static /usr/bin/brvhost)
run_sample "$work" "${brvhost[@]}"
"${brvhost[@]}" run "$work/build/ScoreReport.bundle" --item 0 --all --dry-run samples/winds.musicxml
# The emulator confines no process, and takes longer for the largest scores.
"${brvhost[@]}" check --no-confine --timeout 120 "$bundle" "$work/build/ScoreReport.bundle"
