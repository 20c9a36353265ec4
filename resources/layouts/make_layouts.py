#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 Morvane Labs
# SPDX-License-Identifier: GPL-3.0-or-later
"""Writes layouts.json: one description of sizes per layout name, read by the
screens (which are written once). Sizes are in points and are chosen for the
smallest screen that uses the layout; the screens centre them on larger ones.
Run it after changing a number here: python3 resources/layouts/make_layouts.py"""
import json
import os
import re

HERE = os.path.dirname(os.path.abspath(__file__))
# The device classes are written once, in the core's table; each layout is sized
# for the smallest class that uses it.
TABLE = os.path.join(HERE, "..", "..", "src", "base", "LayoutClass.cpp")
ROW = re.compile(r'\{(Phone|Pad), (\d+), (\d+), "(\w+)"')

# name: (top inset, bottom inset)
INSETS = {
    "Main_iPhone4s": (20, 0),
    "Main_iPhone": (20, 0),
    "Main_iPhone6": (20, 0),
    "Main_iPhone6Plus": (20, 0),
    "Main_iPhoneX": (44, 34),
    "Main_iPhone12Pro": (47, 34),
    "Main_iPhoneXSMax": (44, 34),
    "Main_iPhone12ProMax": (47, 34),
    "Main_iPad": (20, 0),
    "Main_iPad_Pro_10_5": (24, 20),
    "Main_iPad_Mini6": (24, 20),
    "Main_iPad_Pro_11": (24, 20),
    "Main_iPad_Pro": (24, 20),
}


def classes():
    """name: (smallest height, its width, top inset, bottom inset, pad?)"""
    with open(TABLE) as f:
        rows = ROW.findall(f.read())
    out = {}
    for idiom, height, width, name in rows:
        if name not in out or int(height) < out[name][0]:
            out[name] = (int(height), int(width), *INSETS[name], idiom == "Pad")
    if set(out) != set(INSETS):
        raise SystemExit("layouts and the device-class table disagree: %s" % sorted(set(out) ^ set(INSETS)))
    return out


def describe(height, width, top, bottom, pad):
    usable = height - top - bottom
    unit = min(width / 375.0, usable / 620.0)
    if pad:
        unit = min(unit, 1.5)
    unit = round(unit, 3)
    title = round(46 * unit)
    readout = round(96 * unit)
    toolbar = round(58 * unit) if not pad else round(64 * unit * 0.8)
    chart = round(64 * unit)
    margin = round(16 * unit)
    head_h = usable - title - readout - toolbar - chart - 4 * margin
    head_w = head_h * 300 / 450
    if head_w > width * 0.78:
        head_w = width * 0.78
        head_h = head_w * 450 / 300
    fret_h = usable * (0.50 if pad else 0.47)
    return {
        "pad": pad,
        "topInset": top,
        "bottomInset": bottom,
        "unit": unit,
        "margin": margin,
        "titleHeight": title,
        "readoutHeight": readout,
        "toolbarHeight": toolbar,
        "chartHeight": chart,
        "headWidth": round(head_w),
        "headHeight": round(head_h),
        "ledSize": 128 if pad else 64,
        "titleFont": round(20 * unit),
        "noteFont": round(40 * unit),
        "freqFont": round(22 * unit),
        "labelFont": round(15 * unit),
        "smallFont": round(12 * unit),
        "sheetWidth": round(min(width, 520 if pad else width)),
        "fretboardHeight": round(fret_h),
        "fretboardWidth": round(min(width * 0.86, fret_h * 300 / 420)),
        "pickerHeight": round(usable * 0.24),
    }


def main():
    out = {name: describe(*spec) for name, spec in classes().items()}
    with open(os.path.join(HERE, "layouts.json"), "w") as f:
        json.dump(out, f, indent=1, sort_keys=True)
        f.write("\n")


if __name__ == "__main__":
    main()
