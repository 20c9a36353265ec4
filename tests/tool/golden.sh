#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 Morvane Labs
# SPDX-License-Identifier: GPL-3.0-or-later
# The tool's outputs must not move when the code behind them is reorganised: every
# line of data/golden/commands.txt is run and its output and exit status compared
# with NAME.out. `golden.sh UKE SOURCE_DIR --update` rewrites the expected files.
set -u
bin=$1
cd "$2"
dir=tests/tool/data/golden
uke() { "$bin" "$@"; }
failed=0
while IFS='|' read -r name line; do
  case $name in '' | '#'*) continue ;; esac
  got=$(eval "$line"; echo "exit $?")
  if [ "${3:-}" = --update ]; then
    printf '%s\n' "$got" > "$dir/$name.out"
  elif [ "$got" != "$(cat "$dir/$name.out")" ]; then
    echo "differs: $name ($line)"
    diff <(printf '%s\n' "$got") "$dir/$name.out" | head -20
    failed=1
  fi
done < "$dir/commands.txt"
exit $failed
