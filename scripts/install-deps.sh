#!/usr/bin/env bash
# Installs what the app, its tools and its tests need, from Debian 12's packages.
# Safe to run again: apt installs only what is missing.
set -euo pipefail

PACKAGES=(
  cmake ninja-build g++ pkg-config python3 fonts-dejavu-core
  qt6-base-dev qt6-declarative-dev qt6-multimedia-dev qt6-svg-dev qt6-tools-dev qt6-l10n-tools
  qml6-module-qtqml qml6-module-qtqml-models qml6-module-qtqml-workerscript qml6-module-qtquick
  qml6-module-qtquick-window qml6-module-qtquick-layouts qml6-module-qtquick-templates
  qml6-module-qtquick-controls
  libkissfft-dev libsndfile1-dev libsamplerate0-dev
  libgtest-dev libgmock-dev libbenchmark-dev clang libfuzzer-14-dev
  pulseaudio pulseaudio-utils sox libsox-fmt-mp3 lame xvfb xauth imagemagick
  librsvg2-bin desktop-file-utils appstream dpkg-dev file man-db
)

SUDO=""
if [ "$(id -u)" -ne 0 ]; then
  SUDO="sudo"
fi

missing=()
for p in "${PACKAGES[@]}"; do
  if ! dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed"; then
    missing+=("$p")
  fi
done

if [ ${#missing[@]} -gt 0 ]; then
  echo "Installing: ${missing[*]}"
  $SUDO apt-get -o DPkg::Lock::Timeout=600 update -q
  DEBIAN_FRONTEND=noninteractive $SUDO apt-get -o DPkg::Lock::Timeout=600 install -y --no-install-recommends "${missing[@]}"
fi
