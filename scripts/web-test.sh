#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 Morvane Labs
# SPDX-License-Identifier: GPL-3.0-or-later
# Tests of the browser app (after scripts/web.sh has built it): the compiled core
# and the page's ports in Node, then the page itself in the three engines players'
# browsers are built on, from Debian's packages: Chromium and Firefox ESR driven by
# puppeteer-core (tests/web/package-lock.json pins it), and WebKitGTK, Safari's
# engine, through its WebDriver. Each runs headed on a private X display and hears
# and plays through a private PulseAudio server (a virtual microphone playing a
# recording, a speaker the tests record). The core's estimates are compared with
# the desktop tool's: UKE_BIN names it (default build/tools/uke/uke).
#   bash scripts/web-test.sh                        everything
#   bash scripts/web-test.sh --test-name-pattern=webkit   one engine (any node --test option)
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/install-deps.sh web-test
(cd tests/web && npm ci --no-audit --no-fund --loglevel=error)
UKE_BIN=${UKE_BIN:-$PWD/build/tools/uke/uke} node --test "$@" tests/web/
