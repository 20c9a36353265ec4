#!/usr/bin/env bash
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
SUDO=""
[ "$(id -u)" -ne 0 ] && SUDO="sudo"
need=()
for p in chromium firefox-esr webkit2gtk-driver gstreamer1.0-pulseaudio gstreamer1.0-plugins-good \
  gstreamer1.0-plugins-base pulseaudio pulseaudio-utils xvfb sox libsox-fmt-mp3 ninja-build; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || need+=("$p")
done
if [ ${#need[@]} -gt 0 ]; then
  echo "Installing: ${need[*]}"
  $SUDO apt-get -o DPkg::Lock::Timeout=600 update -q
  DEBIAN_FRONTEND=noninteractive $SUDO apt-get -o DPkg::Lock::Timeout=600 install -y --no-install-recommends "${need[@]}"
fi
(cd tests/web && npm ci --no-audit --no-fund --loglevel=error)
UKE_BIN=${UKE_BIN:-$PWD/build/tools/uke/uke} node --test "$@" tests/web/
