#!/usr/bin/env bash
# Installs what is needed, builds with warnings as errors, and runs every test:
# once in the normal build and once in the demonstration-mode build.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/install-deps.sh
export QT_QPA_PLATFORM=offscreen
BUILD_DIR=build scripts/build.sh -DUKE_WITH_QT=ON -DUKE_WERROR=ON -DUKE_DEMO_MODE=OFF
(cd build && ctest --output-on-failure --timeout 300 -j2)
BUILD_DIR=build-demo scripts/build.sh -DUKE_WITH_QT=ON -DUKE_WERROR=ON -DUKE_DEMO_MODE=ON -DUKE_BUILD_BENCH=OFF
# The frozen picture needs no audio: the device tests stay with the normal build.
(cd build-demo && ctest --output-on-failure --timeout 300 -j2 -LE "e2e")
