#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 Morvane Labs
# SPDX-License-Identifier: GPL-3.0-or-later
# Time and peak memory of `uke analyse` over a 1-minute and a 60-minute recording
# at 44.1 kHz (a plucked A4 every 5 s, made with sox), with --tuning and with
# --blocks. The recording is decoded as it is analysed, so the peak must not grow
# with the length: the 60-minute peak should be the 1-minute one within a few MB.
# Target: with --tuning, under 2 s of CPU per 10 minutes of recording.
# usage: bench/analyse-long.sh [BUILD_DIR]
set -euo pipefail
cd "$(dirname "$0")/.."
uke="${1:-build}/tools/uke/uke"
[ -x "$uke" ] || { echo "analyse-long: $uke is missing; build first" >&2; exit 2; }
[ -x /usr/bin/time ] || { echo "analyse-long: /usr/bin/time is missing (Debian's time package)" >&2; exit 2; }
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
sox -n -r 44100 -c 1 -b 16 "$work/pluck.wav" synth 5 pluck A4
sox "$work/pluck.wav" "$work/1-minute.wav" repeat 11
sox "$work/pluck.wav" "$work/60-minutes.wav" repeat 719
printf '%-16s %-9s %10s %10s %10s %12s\n' recording mode wall/s user/s system/s "peak RSS/MB"
for f in 1-minute 60-minutes; do
    for mode in "--tuning 1" --blocks; do
        # shellcheck disable=SC2086 # the mode is two words
        /usr/bin/time -f '%e %U %S %M' -o "$work/time" "$uke" analyse "$work/$f.wav" $mode >/dev/null
        read -r wall user system kb < "$work/time"
        printf '%-16s %-9s %10s %10s %10s %12s\n' "$f.wav" "${mode%% *}" "$wall" "$user" "$system" \
            "$(awk -v kb="$kb" 'BEGIN { printf "%.1f", kb / 1024 }')"
    done
done
