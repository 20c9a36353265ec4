#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 Morvane Labs
# SPDX-License-Identifier: GPL-3.0-or-later
# The whole app's CPU while a player tunes, against a bare `parecord` of the same
# microphone: a plucked A4 every 2 s plays into the project's private PulseAudio
# microphone, the app runs under Xvfb pinned to CPU 0, and after 5 s of warm-up
# its process tree's (utime + stime) / wall time is measured over five 6 s
# windows; then the same with the chord screen and each panel open. Prints the
# shares, their ratio to parecord, the app's RSS and PSS, its start-up time to
# the first frame and the frames it drew. Takes about four minutes.
# usage: bench/app-cpu.sh [BUILD_DIR]     (a build with tests and benchmarks on)
set -euo pipefail
cd "$(dirname "$0")/.."
build="${1:-build}"
app="$build/src/ui/ukulele-tuner"
driver="$build/bench/app_cpu"
for f in "$app" "$driver"; do
    [ -x "$f" ] || { echo "app-cpu: $f is missing; build first (scripts/build.sh)" >&2; exit 2; }
done
unset QT_QPA_PLATFORM # the real window on the virtual display, not offscreen
exec xvfb-run -a -s "-screen 0 1280x1024x24" "$driver" "$app" --show chords --show settings --show fork
