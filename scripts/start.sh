#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 Morvane Labs
# SPDX-License-Identifier: GPL-3.0-or-later
# Installs what is needed, builds, and starts the app. Arguments go to the app,
# for example: scripts/start.sh --device pad-1194
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/install-deps.sh
scripts/build.sh -DUKE_WITH_QT=ON
if [ -z "${DISPLAY:-}" ] && [ -z "${WAYLAND_DISPLAY:-}" ]; then
  echo "No display here: starting the app on a virtual one (xvfb-run). Use --screenshot FILE.png to see it."
  exec xvfb-run -a -s "-screen 0 1280x1400x24" build/src/ui/ukulele-tuner "$@"
fi
exec build/src/ui/ukulele-tuner "$@"
