#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 Morvane Labs
# SPDX-License-Identifier: GPL-3.0-or-later
# Regenerates the tuner screenshots in docs/ from the built app.
set -euo pipefail
cd "$(dirname "$0")/.."
APP=${APP:-build/src/ui/ukulele-tuner}
tmp=$(mktemp -d)
trap 'rm -rf "$tmp"' EXIT
for device in phone-667 phone-844 pad-1194; do
  "$APP" --device "$device" --settings "$tmp/settings.ini" --lang en --quiet --screenshot "docs/tuner-$device.png"
done
