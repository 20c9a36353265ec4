#!/usr/bin/env bash
# How long `uke analyse --tuning` takes over a 10-minute recording at 44.1 kHz:
# a plucked A4 every 5 s, made with sox. Target: under 2 s of CPU.
# usage: bench/analyse-long.sh [BUILD_DIR]
set -euo pipefail
cd "$(dirname "$0")/.."
uke="${1:-build}/tools/uke/uke"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
sox -n -r 44100 -c 1 -b 16 "$work/pluck.wav" synth 5 pluck A4
sox $(for _ in $(seq 120); do echo "$work/pluck.wav"; done) "$work/ten-minutes.wav"
TIMEFORMAT='%R s wall, %U s user, %S s system'
echo "uke analyse of $(soxi -d "$work/ten-minutes.wav") at 44100 Hz, --tuning 1"
time "$uke" analyse "$work/ten-minutes.wav" --tuning 1 >/dev/null
