#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 Morvane Labs
# SPDX-License-Identifier: GPL-3.0-or-later
# Checks the Debian package in dist/ as a player's machine would see it: the desktop
# entry and AppStream data validate, lintian finds nothing, the package installs
# with apt, the installed programs work from /usr/bin in an empty folder, and
# removing it leaves nothing.
# Needs root (or sudo): it really installs and removes the package.
set -euo pipefail
cd "$(dirname "$0")/.."
SUDO=""
if [ "$(id -u)" -ne 0 ]; then
  SUDO="sudo"
fi
ID=org.morvanelabs.UkuleleTuner
debs=(dist/ukulele-tuner_*.deb)
if [ ${#debs[@]} -ne 1 ] || [ ! -f "${debs[0]}" ]; then
  echo "check-package: expected exactly one dist/ukulele-tuner_*.deb (run scripts/package.sh)" >&2
  exit 1
fi
deb=$PWD/${debs[0]}
fail() { echo "check-package: $*" >&2; exit 1; }

desktop-file-validate "desktop/$ID.desktop"
appstreamcli validate --no-net "desktop/$ID.metainfo.xml"
# Debian's own checks, every tag down to the pedantic ones: any line lintian prints
# fails the check. None is overridden; one that ever must be goes into the package's
# lintian overrides with a line giving the reason. It unpacks the package in a
# folder of its own, so it may run as root.
allow_root=()
[ "$(id -u)" -ne 0 ] || allow_root=(--allow-root)
tags=$(lintian -I --pedantic "${allow_root[@]}" "$deb" 2>&1) || true
[ -z "$tags" ] || fail "lintian:"$'\n'"$tags"

DEBIAN_FRONTEND=noninteractive $SUDO apt-get -o DPkg::Lock::Timeout=600 install -y -q --no-install-recommends "$deb" >/dev/null
files=$(dpkg -L ukulele-tuner)

# The installed copies validate too, and the menu entry starts a program on the PATH.
desktop-file-validate "/usr/share/applications/$ID.desktop"
appstreamcli validate --no-net "/usr/share/metainfo/$ID.metainfo.xml" >/dev/null
exec_line=$(sed -n 's/^Exec=//p' "/usr/share/applications/$ID.desktop")
[ "$(command -v "${exec_line%% *}")" = /usr/bin/ukulele-tuner ] || fail "the menu entry runs '$exec_line', not /usr/bin/ukulele-tuner"
[ -f "/usr/share/icons/hicolor/scalable/apps/$ID.svg" ] || fail "no scalable icon"
# The man pages, read from the package itself (a machine may be set to skip them).
pages=$(mktemp -d)
dpkg-deb -x "$deb" "$pages"
for page in uke ukulele-tuner; do
  [ -f "$pages/usr/share/man/man1/$page.1.gz" ] || fail "no man page for $page"
  warnings=$(zcat "$pages/usr/share/man/man1/$page.1.gz" | LC_ALL=C.UTF-8 groff -man -Tutf8 -ww -z 2>&1)
  [ -z "$warnings" ] || fail "the man page of $page: $warnings"
done
rm -rf "$pages"

# From an empty folder, with a home of its own: nothing of the build tree is reachable.
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"
export HOME=$work
for program in uke ukulele-tuner; do
  /usr/bin/$program --version > version.txt
  grep -qx "$program [0-9.]*" version.txt || fail "$program --version gives no version"
  grep -q "^License GPL-3.0-or-later" version.txt || fail "$program --version does not name the licence"
done
/usr/bin/uke analyse /usr/share/ukulele-tuner/sounds/A4.mp3 --tuning 1 --format json > a4.json
grep -q '"A4"' a4.json || fail "uke analyse of the installed A4 recording did not show A4"
# Started as the menu entry starts it.
$exec_line --quiet --screenshot shot.png 2>app.log
[ "$(identify -format '%w' shot.png)" -gt 0 ] || fail "the screenshot is empty"
# A tuner screen is mostly its dark background; a blank or failed render is one colour.
[ "$(convert shot.png -format '%k' info:)" -gt 100 ] || fail "the screenshot has almost no colours"
! grep "no sounds in" app.log || fail "the installed app does not find its sounds"
# Moved elsewhere with its share folder, a copy still finds its sounds.
mkdir -p opt/bin opt/share
cp /usr/bin/ukulele-tuner opt/bin/
cp -r /usr/share/ukulele-tuner opt/share/
opt/bin/ukulele-tuner --quiet --screenshot moved.png 2>moved.log
! grep "no sounds in" moved.log || fail "a relocated copy does not find its sounds"
cd /
DEBIAN_FRONTEND=noninteractive $SUDO apt-get -o DPkg::Lock::Timeout=600 remove -y -q ukulele-tuner >/dev/null
left=$(while read -r f; do [ -f "$f" ] && echo "$f"; done <<<"$files" || true)
[ -z "$left" ] || fail "removing the package left: $left"
echo "check-package: $(basename "$deb") validates, installs, runs from /usr/bin and removes cleanly"
