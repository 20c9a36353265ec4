#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 Morvane Labs
# SPDX-License-Identifier: GPL-3.0-or-later
# For each string recording: the pitch the tuner's estimator reads in its second
# block, and every tuning in which the replayed recording lights a string green.
# Usage: scripts/sound-report.sh [path/to/uke]   (default build/tools/uke/uke)
set -euo pipefail
cd "$(dirname "$0")/.."
UKE=${1:-build/tools/uke/uke}
[ -x "$UKE" ] || { echo "sound-report: $UKE is not built (bash scripts/build.sh)" >&2; exit 2; }
printf "%-8s %10s  %s\n" file estimate "lights green in tuning:highlight"
for f in resources/sounds/[A-G]*.mp3; do
    hz=$("$UKE" analyse "$f" --blocks | awk 'NR == 3 { print $5 }')
    lit=""
    for t in $(seq 1 11); do
        hl=$("$UKE" analyse "$f" --tuning "$t" | awk '$4 == "green" { print $5; exit }')
        [ -n "$hl" ] && lit="$lit $t:${hl%_string*}"
    done
    printf "%-8s %10s  %s\n" "$(basename "$f")" "$hz" "${lit:- NONE}"
done
