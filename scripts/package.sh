#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 Morvane Labs
# SPDX-License-Identifier: GPL-3.0-or-later
# Builds the app and writes its Debian package, dist/ukulele-tuner_VERSION_ARCH.deb.
# Install it with: sudo apt install ./dist/*.deb
# BUILD_DIR picks the build to package (default build-package); extra arguments go to CMake.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/install-deps.sh
# A build of its own leaves the tests and benchmarks out; a given one (CI packs the
# build it has just tested, with Debian's hardening flags) is packed as it is.
if [ -z "${BUILD_DIR:-}" ]; then
  BUILD_DIR=build-package
  flag() { DEB_BUILD_MAINT_OPTIONS=hardening=+all dpkg-buildflags --get "$1"; }
  set -- -DUKE_BUILD_TESTS=OFF -DUKE_BUILD_BENCH=OFF -DCMAKE_CXX_FLAGS="$(flag CPPFLAGS) $(flag CXXFLAGS)" \
    -DCMAKE_EXE_LINKER_FLAGS="$(flag LDFLAGS)" -DCMAKE_SHARED_LINKER_FLAGS="$(flag LDFLAGS)" "$@"
fi
# The tested configuration, stripped when packed: what ships is what the tests ran.
cmake -S . -B "$BUILD_DIR" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DUKE_WITH_QT=ON "$@"
cmake --build "$BUILD_DIR"
rm -rf dist/_CPack_Packages
mkdir -p dist
cpack --config "$BUILD_DIR/CPackConfig.cmake" -B "$PWD/dist"
rm -rf dist/_CPack_Packages
ls dist/*.deb
