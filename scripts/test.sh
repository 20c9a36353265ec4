#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 Morvane Labs
# SPDX-License-Identifier: GPL-3.0-or-later
# Installs what is needed, builds with warnings as errors, and runs every test:
# once in the normal build (which is then packed, installed and removed, and whose
# tool checks the browser build's estimates), once in the demonstration-mode build and once under
# the address and undefined-behaviour sanitizers; the threaded parts once more
# under the thread sanitizer; then each fuzz target for a minute.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/install-deps.sh
# Every file names its copyright holder and licence (SPDX tags, or .reuse/dep5).
reuse lint
export QT_QPA_PLATFORM=offscreen
# The build that is tested and then packed gets Debian's hardening flags (fortified
# functions, stack protector, read-only relocations bound at start), so the tests
# run what ships; the sanitizer and fuzz builds below keep their own flags.
flag() { DEB_BUILD_MAINT_OPTIONS=hardening=+all dpkg-buildflags --get "$1"; }
HARDENED=(-DCMAKE_CXX_FLAGS="$(flag CPPFLAGS) $(flag CXXFLAGS)"
  -DCMAKE_EXE_LINKER_FLAGS="$(flag LDFLAGS)" -DCMAKE_SHARED_LINKER_FLAGS="$(flag LDFLAGS)")
BUILD_DIR=build scripts/build.sh -DUKE_WITH_QT=ON -DUKE_WERROR=ON -DUKE_DEMO_MODE=OFF "${HARDENED[@]}"
(cd build && ctest --output-on-failure --timeout 300 -j2)
# The build just tested, packed as the Debian package, checked by lintian, installed,
# run from /usr/bin in an empty folder and removed again.
BUILD_DIR=build scripts/package.sh -DUKE_WITH_QT=ON -DUKE_WERROR=ON -DUKE_DEMO_MODE=OFF "${HARDENED[@]}"
scripts/check-package.sh
# The browser app: the same core as WebAssembly (its estimates checked against the
# build just tested), the page's ports, and the page in Chromium, Firefox ESR and WebKitGTK.
scripts/web.sh
scripts/web-test.sh
BUILD_DIR=build-demo scripts/build.sh -DUKE_WITH_QT=ON -DUKE_WERROR=ON -DUKE_DEMO_MODE=ON -DUKE_BUILD_BENCH=OFF
# The frozen picture needs no audio: the device tests stay with the normal build.
(cd build-demo && ctest --output-on-failure --timeout 300 -j2 -LE "e2e")
# The whole suite again, end-to-end tests included, under the address and
# undefined-behaviour sanitizers (cmake/SanitizerOptions.cpp says what they leave out).
BUILD_DIR=build-asan scripts/build.sh -DUKE_WITH_QT=ON -DUKE_WERROR=ON -DUKE_DEMO_MODE=OFF -DUKE_SANITIZE=ON \
  -DUKE_BUILD_BENCH=OFF
(cd build-asan && ctest --output-on-failure --timeout 600 -j2)
# The programs that run more than one thread (capture, tone rendering, the rating
# prompt's worker, the real devices end to end) under the thread sanitizer; the
# rest of the suite is single-threaded and is not built again for it.
THREADED="audio rating sounds qtplatform e2e"
cmake -S . -B build-tsan -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DUKE_WITH_QT=ON -DUKE_WERROR=ON \
  -DUKE_DEMO_MODE=OFF -DUKE_SANITIZE_THREAD=ON -DUKE_BUILD_BENCH=OFF
cmake --build build-tsan --target $(printf 'test_%s ' $THREADED)
(cd build-tsan && ctest --output-on-failure --timeout 600 -j2 -L "^($(echo $THREADED | tr ' ' '|'))\$")
# Every reader of outside input fuzzed for a minute from its seed corpus.
scripts/fuzz.sh 60
