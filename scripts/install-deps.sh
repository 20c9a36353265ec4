#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 Morvane Labs
# SPDX-License-Identifier: GPL-3.0-or-later
# Installs what a part of the project needs, from Debian 12's packages. Safe to run
# again: apt installs only what is missing.
#   bash scripts/install-deps.sh                 the desktop app, its tools and tests
#   bash scripts/install-deps.sh web             what scripts/web.sh needs to build the browser app
#   bash scripts/install-deps.sh web-test        what scripts/web-test.sh needs to test it
#   bash scripts/install-deps.sh desktop web     several groups at once
set -euo pipefail

DESKTOP=(
  cmake ninja-build g++ pkg-config python3 fonts-dejavu-core
  qt6-base-dev qt6-declarative-dev qt6-multimedia-dev qt6-svg-dev qt6-tools-dev qt6-l10n-tools
  qml6-module-qtqml qml6-module-qtqml-models qml6-module-qtqml-workerscript qml6-module-qtquick
  qml6-module-qtquick-window qml6-module-qtquick-layouts qml6-module-qtquick-templates
  qml6-module-qtquick-controls
  libkissfft-dev libsndfile1-dev libsamplerate0-dev
  libgtest-dev libgmock-dev libbenchmark-dev clang libfuzzer-14-dev
  pulseaudio pulseaudio-utils sox libsox-fmt-mp3 lame xvfb xauth imagemagick
  librsvg2-bin desktop-file-utils appstream dpkg-dev file man-db time lintian reuse
)
WEB=(emscripten python3 cmake ninja-build librsvg2-bin dpkg-dev xz-utils)
WEB_TEST=(
  chromium firefox-esr webkit2gtk-driver
  gstreamer1.0-pulseaudio gstreamer1.0-plugins-good gstreamer1.0-plugins-base
  pulseaudio pulseaudio-utils xvfb sox libsox-fmt-mp3 ninja-build
)

[ $# -gt 0 ] || set -- desktop
wanted=()
node=0
for group in "$@"; do
  case "$group" in
    desktop) wanted+=("${DESKTOP[@]}") ;;
    web) wanted+=("${WEB[@]}"); node=1 ;;
    web-test) wanted+=("${WEB_TEST[@]}"); node=1 ;;
    *) echo "install-deps: unknown group '$group' (desktop, web, web-test)" >&2; exit 2 ;;
  esac
done
# The machine may already have a newer Node.js of its own; Debian's is enough otherwise.
if [ "$node" = 1 ]; then
  command -v node >/dev/null || wanted+=(nodejs)
  command -v npm >/dev/null || wanted+=(npm)
fi

SUDO=""
if [ "$(id -u)" -ne 0 ]; then
  SUDO="sudo"
fi

missing=()
declare -A seen=()
for p in "${wanted[@]}"; do
  [ -z "${seen[$p]:-}" ] || continue
  seen[$p]=1
  if ! dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed"; then
    missing+=("$p")
  fi
done

if [ ${#missing[@]} -gt 0 ]; then
  echo "Installing: ${missing[*]}"
  $SUDO apt-get -o DPkg::Lock::Timeout=600 update -q
  DEBIAN_FRONTEND=noninteractive $SUDO apt-get -o DPkg::Lock::Timeout=600 install -y --no-install-recommends "${missing[@]}"
fi
