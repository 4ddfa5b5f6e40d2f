#!/usr/bin/env bash
# Installs what the preset arm64 needs besides what scripts/install-dependencies.sh installs: the cross compiler, the
# libraries of that architecture, and the emulator that runs what was built.
set -euo pipefail
cd "$(dirname "$0")/.."

exec scripts/install-dependencies.sh g++-aarch64-linux-gnu qemu-user-static \
  lib{gtest,gmock,benchmark,rapidcheck,plist,icu,expat1,zip,deflate,seccomp,fmt}-dev:arm64
