#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 Morvane Labs
# SPDX-License-Identifier: GPL-3.0-or-later
# Builds the libFuzzer targets with Clang (address and undefined-behaviour
# sanitizers on) and runs each for SECONDS (default 60) from its committed seed
# corpus in fuzz/corpus/. New inputs go to a scratch folder, never into the
# repository; a crash leaves its input in build-fuzz/ and fails the run.
# usage: scripts/fuzz.sh [SECONDS] [TARGET...]
set -euo pipefail
cd "$(dirname "$0")/.."
seconds=${1:-60}
shift || true
targets=("$@")
[ ${#targets[@]} -gt 0 ] || targets=(audio_file settings_file string_table screen_actions)
scripts/install-deps.sh
CC=clang CXX=clang++ cmake -S . -B build-fuzz -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DUKE_WITH_QT=OFF \
  -DUKE_BUILD_TESTS=OFF -DUKE_BUILD_BENCH=OFF -DUKE_FUZZ=ON >/dev/null
cmake --build build-fuzz
failed=0
for t in "${targets[@]}"; do
  work=$(mktemp -d)
  log=build-fuzz/fuzz_$t.log
  status=0
  build-fuzz/fuzz/fuzz_$t -max_total_time="$seconds" -print_final_stats=1 -artifact_prefix="build-fuzz/crash-$t-" \
    "$work" "fuzz/corpus/$t" >"$log" 2>&1 || status=$?
  runs=$(sed -n 's/^stat::number_of_executed_units: *//p' "$log")
  corpus=$(find "$work" -type f | wc -l)
  rm -rf "$work"
  if [ "$status" -ne 0 ]; then
    echo "fuzz_$t: FAILED after ${runs:-?} runs; the input is in build-fuzz/crash-$t-*"
    grep -E "ERROR|SUMMARY|runtime error" "$log" | head -5
    failed=1
  else
    echo "fuzz_$t: ${runs:-?} runs in ${seconds} s, $corpus new inputs, no crash"
  fi
done
exit $failed
