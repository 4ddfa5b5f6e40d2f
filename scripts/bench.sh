#!/usr/bin/env bash
# Measures every figure, beside the tools that a user would pick instead, and writes build/bench/report.md and its
# plots. With --quick a small version, in a minute; with --figures only some, which bench/report/report.py names; with
# --beside also another build of brvhost, an earlier one for instance: what it costs to start, and to run. Real scores
# are looked for in ../shared (or $BRV_SHARED_DIR); without them a sample stands in.
set -euo pipefail
cd "$(dirname "$0")/.."

case "${1-}" in
  "" | --quick | --figures | --beside) ;;
  *) echo "usage: scripts/bench.sh [--quick | --figures NAME,...] [--beside BRVHOST]" >&2; exit 2 ;;
esac

scripts/install-dependencies.sh
scripts/install-dependencies.sh xsltproc python3-lxml libpugixml-dev gnuplot-nox time
cmake --preset release -DBRV_BUILD_TESTS=ON -DBRV_BUILD_BENCHMARKS=ON >/dev/null
cmake --build --preset release -j "$(nproc)"
mkdir -p build/bench
python3 bench/report/report.py "$PWD/build/release" "$PWD/build/bench" "$@"
