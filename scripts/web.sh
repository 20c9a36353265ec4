#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 Morvane Labs
# SPDX-License-Identifier: GPL-3.0-or-later
# The browser app: the core compiled to WebAssembly with Debian's emscripten, the
# page's own JavaScript, art, layouts, texts and sounds, written to web/dist/.
#   bash scripts/web.sh          installs what it needs and builds
#   bash scripts/web.sh serve    builds, then serves web/dist on http://127.0.0.1:8080
set -euo pipefail
cd "$(dirname "$0")/.."
TOP=$PWD
BUILD=${WEB_BUILD_DIR:-build-web}

scripts/install-deps.sh web
# Debian's emscripten runs its optimiser on Node.js, which does not look in Debian's module folder.
export NODE_PATH=/usr/share/nodejs

# KISS FFT from the very source package the desktop's library is built from, so that
# both transforms round alike. A private apt configuration adds the source entry
# without touching the machine's own lists.
KISSFFT_VERSION=$(dpkg-query -W -f='${source:Version}' libkissfft-dev 2>/dev/null || true)
KISSFFT_DIR=$TOP/$BUILD/kissfft
if [ ! -f "$KISSFFT_DIR/kiss_fftr.c" ]; then
  apt_dir=$(mktemp -d)
  trap 'rm -rf "$apt_dir"' EXIT
  mkdir -p "$apt_dir/parts" "$apt_dir/state/lists/partial" "$apt_dir/cache/archives/partial" "$apt_dir/src"
  cat > "$apt_dir/parts/debian-src.sources" <<SOURCES
Types: deb-src
URIs: http://deb.debian.org/debian
Suites: bookworm bookworm-updates
Components: main
Signed-By: /usr/share/keyrings/debian-archive-keyring.gpg
SOURCES
  APT=(apt-get -q -o Dir::Etc::sourcelist=/dev/null -o Dir::Etc::sourceparts="$apt_dir/parts"
       -o Dir::State="$apt_dir/state" -o Dir::Cache="$apt_dir/cache" -o Debug::NoLocking=1
       -o APT::Sandbox::User=root)
  "${APT[@]}" update >/dev/null
  (cd "$apt_dir/src" && "${APT[@]}" source "kissfft${KISSFFT_VERSION:+=$KISSFFT_VERSION}" >/dev/null)
  mkdir -p "$KISSFFT_DIR"
  cp -r "$apt_dir"/src/kissfft-*/. "$KISSFFT_DIR/"
fi

# What the page ships under which licence: the app's own, and KISS FFT's notice and
# licence text from the source package, since its code is compiled into core.wasm.
# Written before the build so that build.json lists it and the service worker keeps
# it; when it changes, the page's step runs again and the cache gets a new name.
licenses=$(mktemp)
{
  echo "Ukulele Tuner, the browser app"
  echo "Copyright 2026 Morvane Labs"
  echo "License GPL-3.0-or-later: GNU GPL version 3 or later <https://gnu.org/licenses/gpl.html>"
  echo
  echo "This program is free software: you can redistribute it and/or modify it under"
  echo "the terms of the GNU General Public License as published by the Free Software"
  echo "Foundation, either version 3 of the License, or (at your option) any later"
  echo "version. It is distributed WITHOUT ANY WARRANTY. The licence's full text"
  echo "follows at the end of this file."
  echo
  echo "------------------------------------------------------------------------------"
  echo "KISS FFT $(dpkg-parsechangelog -l "$KISSFFT_DIR/debian/changelog" -S Version) (kiss_fft.c, kiss_fftr.c),"
  echo "compiled into core.wasm"
  echo
  cat "$KISSFFT_DIR/COPYING"
  echo
  # The licence text without its SPDX preamble and its blank copyright template.
  sed -e '1,/^License-Text:/d' -e '/<year> <owner>/d' "$KISSFFT_DIR/LICENSES/BSD-3-Clause" | sed '/./,$!d'
  echo
  echo "------------------------------------------------------------------------------"
  echo "GNU General Public License, version 3"
  echo
  cat LICENSE
} | cat -s > "$licenses"
mkdir -p web/dist
if ! cmp -s "$licenses" web/dist/licenses.txt; then
  mv "$licenses" web/dist/licenses.txt
  rm -f "$BUILD/web/page.stamp"
else
  rm -f "$licenses"
fi

if [ ! -f "$BUILD/build.ninja" ]; then
  emcmake cmake -S . -B "$BUILD" -G Ninja -DCMAKE_BUILD_TYPE=Release -DUKE_WITH_QT=OFF \
    -DUKE_BUILD_TESTS=OFF -DUKE_BUILD_BENCH=OFF -DUKE_KISSFFT_SOURCE="$KISSFFT_DIR" >/dev/null
fi
cmake --build "$BUILD" --target web
echo "Built web/dist/"

if [ "${1:-}" = serve ]; then
  echo "Serving http://127.0.0.1:8080/ (Ctrl+C stops)"
  exec python3 "$TOP/web/tools/serve.py" --port 8080 "$TOP/web/dist"
fi
