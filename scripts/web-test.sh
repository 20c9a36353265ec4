#!/usr/bin/env bash
# Tests of the browser app (after scripts/web.sh has built it): the compiled core
# and the page's ports in Node, then the page itself in Debian's Chromium, driven
# by puppeteer-core (tests/web/package-lock.json pins it) with a fake microphone.
# The core's estimates are compared with the desktop tool's: UKE_BIN names it
# (default build/tools/uke/uke).
set -euo pipefail
cd "$(dirname "$0")/.."
SUDO=""
[ "$(id -u)" -ne 0 ] && SUDO="sudo"
need=()
for p in chromium sox libsox-fmt-mp3; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || need+=("$p")
done
if [ ${#need[@]} -gt 0 ]; then
  echo "Installing: ${need[*]}"
  $SUDO apt-get -o DPkg::Lock::Timeout=600 update -q
  DEBIAN_FRONTEND=noninteractive $SUDO apt-get -o DPkg::Lock::Timeout=600 install -y --no-install-recommends "${need[@]}"
fi
(cd tests/web && npm ci --no-audit --no-fund --loglevel=error)
UKE_BIN=${UKE_BIN:-$PWD/build/tools/uke/uke} node --test tests/web/
