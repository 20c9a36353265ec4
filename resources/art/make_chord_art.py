#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 Morvane Labs
# SPDX-License-Identifier: GPL-3.0-or-later
"""Writes the chord screen's pictures into resources/images/ as SVG:

  fretboard.svg                       the standard chart's neck (the layout's own picture)
  bchords_*.svg, slchords_*.svg,      the baritone and the two open-tuning necks, one per
  slbchords_*.svg                     device variant (_iPad, _iPhone, _iPhone5, _iPhone6, _iPhone6Plus)
  circle.svg, x.svg, dot.svg          open and muted string marks, finger dot
  2.svg .. 9.svg                      fret numbers
  sharp.svg, flat.svg                 the spelling switch

Every neck is drawn on the canvas of the "fretboard" section of geometry.json, so the
screen can lay its status, cell and number views over any of them from the same
numbers. The variants differ only in line weight and detail: each is tuned to the size
the screens of its class show it at. Run it after changing anything here:
python3 resources/art/make_chord_art.py"""
import json
import os

HERE = os.path.dirname(os.path.abspath(__file__))
IMAGES = os.path.join(HERE, "..", "images")

with open(os.path.join(HERE, "geometry.json")) as f:
    GEO = json.load(f)["fretboard"]

W, H = GEO["width"], GEO["height"]
STRING_X = {int(k): v for k, v in GEO["stringX"].items()}
NUT_Y = GEO["nutY"]
ROW_H = GEO["rowHeight"]
STATUS_Y = GEO["statusY"]
MARK = GEO["markSize"]
NUMBER = GEO["numberSize"]

# The app's palette (src/ui/qml/Theme.js).
TEXT = "#f3ede4"
ACCENT = "#f2b33d"
GOOD = "#5fd37a"
DANGER = "#e0675a"
PANEL = "#25212c"

FONT = "DejaVu Sans, Verdana, sans-serif"

# Each chart's neck: wood, the binding colour that tells the charts apart,
# and the open strings named above the nut (strings 4 to 1). The standard picture
# names none: the layout keeps it for any chart on screens of no family picture.
FAMILIES = {
    "fretboard": {"wood": ("#4a3428", "#2e2019"), "accent": ACCENT, "strings": None},
    "bchords": {"wood": ("#3b2f2c", "#211a19"), "accent": "#e08a4f", "strings": "D G B E"},
    "slchords": {"wood": ("#4d3a22", "#2c2114"), "accent": "#9fcf6a", "strings": "G C E G"},
    "slbchords": {"wood": ("#3d2b33", "#231920"), "accent": "#d98bb0", "strings": "D G B D"},
}

# Line-weight factor per variant: the smaller the neck is shown, the heavier its lines.
VARIANTS = {
    "_iPhone": 1.45,
    "_iPhone5": 1.35,
    "_iPhone6": 1.2,
    "_iPhone6Plus": 1.1,
    "_iPad": 0.9,
}

# String gauges, thickest first as a re-entrant uke is strung (string 3 is the low C).
GAUGE = {1: 2.2, 2: 2.8, 3: 3.4, 4: 2.5}


def svg(width, height, body):
    return (
        f'<svg xmlns="http://www.w3.org/2000/svg" width="{width}" height="{height}" '
        f'viewBox="0 0 {width} {height}">\n{body}</svg>\n'
    )


def write(name, text):
    with open(os.path.join(IMAGES, name), "w") as f:
        f.write(text)


# Below the last fret the neck and everything on it fade out towards the canvas
# bottom, so the picture ends softly instead of with a cut.
FADE_TOP = NUT_Y + 4 * ROW_H + 3


def neck(family, weight, detailed):
    spec = FAMILIES[family]
    wood_top, wood_bottom = spec["wood"]
    accent = spec["accent"]
    left = STRING_X[4] - 34
    right = STRING_X[1] + 34
    bottom = H
    frets = [NUT_Y + ROW_H * r for r in range(1, 5)]
    fades = {}

    def fading(colour, opacity=1.0):
        # Vertical only and in canvas units, so that it also paints lines of no width.
        key = (colour, opacity)
        if key not in fades:
            fades[key] = f"fade{len(fades)}"
        return f"url(#{fades[key]})"

    body = []
    # Neck with a soft drop shadow, darker towards its edges, and a coloured
    # binding on both edges.
    body.append(f'<rect x="{left + 3}" y="{NUT_Y + 4}" width="{right - left}" height="{bottom - NUT_Y}" '
                f'rx="6" fill="{fading("#000", 0.35)}"/>')
    body.append(f'<rect x="{left}" y="{NUT_Y}" width="{right - left}" height="{bottom - NUT_Y}" '
                f'fill="{fading(wood_top)}"/>')
    for edge, sign in ((left, 1), (right, -1)):
        for width, opacity in ((44, 0.35), (26, 0.45), (12, 0.6)):
            x = edge + sign * width / 2
            body.append(f'<line x1="{x}" y1="{NUT_Y}" x2="{x}" y2="{bottom}" '
                        f'stroke="{fading(wood_bottom, opacity)}" stroke-width="{width}"/>')
    if detailed:
        # Grain: faint lines that only a large screen shows.
        for i, x in enumerate(range(left + 9, right - 4, 13)):
            wobble = 3 if i % 2 else -3
            body.append(f'<path d="M{x} {NUT_Y} C{x + wobble} {NUT_Y + 110} {x - wobble} {NUT_Y + 230} '
                        f'{x + wobble / 2} {bottom}" stroke="{fading("#000", 0.12)}" stroke-width="1.2" '
                        f'fill="none"/>')
    for x in (left, right):
        body.append(f'<line x1="{x}" y1="{NUT_Y}" x2="{x}" y2="{bottom}" stroke="{fading(accent, 0.85)}" '
                    f'stroke-width="{2.6 * weight:.2f}"/>')
    # Frets.
    for y in frets:
        body.append(f'<rect x="{left}" y="{y - 2.2 * weight:.2f}" width="{right - left}" '
                    f'height="{4.4 * weight:.2f}" rx="1.5" fill="url(#fret)"/>')
    # Nut.
    body.append(f'<rect x="{left - 2}" y="{NUT_Y - 7}" width="{right - left + 4}" height="12" rx="3" '
                f'fill="url(#nut)"/>')
    body.append(f'<line x1="{left - 2}" y1="{NUT_Y + 5}" x2="{right + 2}" y2="{NUT_Y + 5}" '
                f'stroke="#000" stroke-opacity="0.3" stroke-width="2"/>')
    # Strings, each with a dark shadow line so they read against light wood too.
    for s in (4, 3, 2, 1):
        x = STRING_X[s]
        g = GAUGE[s] * weight
        body.append(f'<line x1="{x + 1.6}" y1="{NUT_Y - 6}" x2="{x + 1.6}" y2="{bottom}" '
                    f'stroke="{fading("#000", 0.35)}" stroke-width="{g:.2f}"/>')
        body.append(f'<line x1="{x}" y1="{NUT_Y - 8}" x2="{x}" y2="{bottom}" stroke="{fading("#efe3cc")}" '
                    f'stroke-width="{g:.2f}"/>')
    parts = [
        "<defs>",
        '<linearGradient id="fret" x1="0" y1="0" x2="0" y2="1">'
        '<stop offset="0" stop-color="#f4efe6"/><stop offset="0.5" stop-color="#bdb6ab"/>'
        '<stop offset="1" stop-color="#7c766e"/></linearGradient>',
        '<linearGradient id="nut" x1="0" y1="0" x2="0" y2="1">'
        '<stop offset="0" stop-color="#fbf6ea"/><stop offset="1" stop-color="#d8ccb4"/></linearGradient>',
    ]
    for (colour, opacity), gid in fades.items():
        parts.append(f'<linearGradient id="{gid}" gradientUnits="userSpaceOnUse" x1="0" y1="{FADE_TOP}" x2="0" '
                     f'y2="{bottom}"><stop offset="0" stop-color="{colour}" stop-opacity="{opacity}"/>'
                     f'<stop offset="1" stop-color="{colour}" stop-opacity="0"/></linearGradient>')
    parts.append("</defs>")
    parts.extend(body)
    # Family marking: the open strings named above their status marks, as large as
    # the strip above the marks allows.
    if spec["strings"]:
        size = 16.0 if weight < 1.0 else 18.0
        for s, name in zip((4, 3, 2, 1), spec["strings"].split()):
            parts.append(f'<text x="{STRING_X[s]}" y="{size * 0.86:.1f}" text-anchor="middle" font-family="{FONT}" '
                         f'font-size="{size:.1f}" font-weight="bold" fill="{accent}">{name}</text>')
    return svg(W, H, "\n".join(parts) + "\n")


def circle_mark():
    c = MARK / 2
    return svg(MARK, MARK,
               f'<circle cx="{c}" cy="{c}" r="13.5" fill="{PANEL}" fill-opacity="0.55"/>\n'
               f'<circle cx="{c}" cy="{c}" r="13.5" fill="none" stroke="{GOOD}" stroke-width="4.5"/>\n')


def x_mark():
    c = MARK / 2
    d = 10.5
    return svg(MARK, MARK,
               f'<circle cx="{c}" cy="{c}" r="16" fill="{PANEL}" fill-opacity="0.55"/>\n'
               f'<path d="M{c - d} {c - d} L{c + d} {c + d} M{c + d} {c - d} L{c - d} {c + d}" '
               f'stroke="{DANGER}" stroke-width="5" stroke-linecap="round"/>\n')


def dot_mark():
    c = MARK / 2
    return svg(MARK, MARK,
               '<defs><radialGradient id="g" cx="0.38" cy="0.32" r="0.75">'
               '<stop offset="0" stop-color="#ffe2a3"/><stop offset="0.45" stop-color="#f2b33d"/>'
               '<stop offset="1" stop-color="#c77d14"/></radialGradient></defs>\n'
               f'<circle cx="{c + 1}" cy="{c + 2}" r="17" fill="#000" opacity="0.4"/>\n'
               f'<circle cx="{c}" cy="{c}" r="17" fill="url(#g)"/>\n'
               f'<circle cx="{c}" cy="{c}" r="17" fill="none" stroke="#1b1410" stroke-opacity="0.55" '
               f'stroke-width="1.5"/>\n')


def number_mark(n):
    c = NUMBER / 2
    return svg(NUMBER, NUMBER,
               f'<rect x="1" y="1" width="{NUMBER - 2}" height="{NUMBER - 2}" rx="8" fill="{PANEL}" '
               f'stroke="{ACCENT}" stroke-width="2"/>\n'
               f'<text x="{c}" y="{c + 7}" text-anchor="middle" font-family="{FONT}" font-size="20" '
               f'font-weight="bold" fill="{TEXT}">{n}</text>\n')


def sharp_icon():
    # Two upright stems crossed by two heavy rising bars.
    return svg(64, 64,
               f'<g stroke="{TEXT}" stroke-linecap="round" fill="none">'
               '<line x1="26" y1="10" x2="26" y2="56" stroke-width="4.5"/>'
               '<line x1="39" y1="8" x2="39" y2="54" stroke-width="4.5"/>'
               '<line x1="16" y1="27" x2="49" y2="20" stroke-width="8"/>'
               '<line x1="16" y1="44" x2="49" y2="37" stroke-width="8"/></g>\n')


def flat_icon():
    # A stem with a bowl on its lower half.
    return svg(64, 64,
               f'<g stroke="{TEXT}" fill="none" stroke-linecap="round" stroke-linejoin="round">'
               '<line x1="24" y1="6" x2="24" y2="56" stroke-width="5"/>'
               '<path d="M24 36 C31 28 44 26 44 35 C44 44 33 51 24 56" stroke-width="6"/></g>\n')


def main():
    os.makedirs(IMAGES, exist_ok=True)
    write("fretboard.svg", neck("fretboard", 1.0, True))
    for family in ("bchords", "slchords", "slbchords"):
        for suffix, weight in VARIANTS.items():
            write(f"{family}{suffix}.svg", neck(family, weight, suffix == "_iPad"))
    write("circle.svg", circle_mark())
    write("x.svg", x_mark())
    write("dot.svg", dot_mark())
    for n in range(2, 10):
        write(f"{n}.svg", number_mark(n))
    write("sharp.svg", sharp_icon())
    write("flat.svg", flat_icon())


if __name__ == "__main__":
    main()
