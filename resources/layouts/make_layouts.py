#!/usr/bin/env python3
"""Writes layouts.json: one description of sizes per layout name, read by the
screens (which are written once). Sizes are in points and are chosen for the
smallest screen that uses the layout; the screens centre them on larger ones.
Run it after changing a number here: python3 resources/layouts/make_layouts.py"""
import json
import os

# name: (smallest height, width, top inset, bottom inset, pad?)
CLASSES = {
    "Main_iPhone4s": (480, 320, 20, 0, False),
    "Main_iPhone": (568, 320, 20, 0, False),
    "Main_iPhone6": (667, 375, 20, 0, False),
    "Main_iPhone6Plus": (736, 414, 20, 0, False),
    "Main_iPhoneX": (812, 375, 44, 34, False),
    "Main_iPhone12Pro": (844, 390, 47, 34, False),
    "Main_iPhoneXSMax": (896, 414, 44, 34, False),
    "Main_iPhone12ProMax": (912, 420, 47, 34, False),
    "Main_iPad": (1024, 768, 20, 0, True),
    "Main_iPad_Pro_10_5": (1080, 810, 24, 20, True),
    "Main_iPad_Mini6": (1133, 744, 24, 20, True),
    "Main_iPad_Pro_11": (1180, 820, 24, 20, True),
    "Main_iPad_Pro": (1366, 1024, 24, 20, True),
}


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
    out = {name: describe(*spec) for name, spec in CLASSES.items()}
    here = os.path.dirname(os.path.abspath(__file__))
    with open(os.path.join(here, "layouts.json"), "w") as f:
        json.dump(out, f, indent=1, sort_keys=True)
        f.write("\n")


if __name__ == "__main__":
    main()
