#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 Morvane Labs
# SPDX-License-Identifier: GPL-3.0-or-later
"""Draws the tuner screen's artwork as SVG files in resources/images/.

Everything is drawn from code: the ukulele head, the string highlights laid
over it, the peg rings, the lamps, the title-row arrows, the toolbar icons and
the chord-library button icons. The head's fixed points (pegs, posts, nut,
strings at the nut) come from geometry.json, which the screens read too, so
every overlay lines up with the picture on every layout.

The files are rendered by Qt SVG (SVG Tiny 1.2): no filters, masks, clip paths
or patterns. Glows are stacks of translucent strokes and shapes are clipped in
this script instead.

Run it after changing a number here, then rebuild the app so the resource list
picks up new files:  python3 resources/art/make_art.py
"""
import json
import math
import os
import random

HERE = os.path.dirname(os.path.abspath(__file__))
OUT = os.path.normpath(os.path.join(HERE, "..", "images"))
with open(os.path.join(HERE, "geometry.json"), encoding="utf-8") as f:
    GEO = json.load(f)["headstock"]

W, H = GEO["width"], GEO["height"]
NUT_Y = GEO["nutY"]
CX = W / 2.0
PEGS = {int(k): (v["x"], v["y"]) for k, v in GEO["pegs"].items()}
POSTS = {int(k): (v["x"], v["y"]) for k, v in GEO["post"].items()}
STRING_X = {int(k): v for k, v in GEO["stringX"].items()}

# The dark UI's colours (src/ui/qml/Theme.js), for icons that sit on it.
UI_BG = "#17151c"
UI_TEXT = "#f3ede4"

# One accent per string; a string's highlight glows in its ring's colour so
# the two read as one event. String 1 is the in-tune green.
ACCENT = {1: "#4fe08a", 2: "#ffcc4d", 3: "#ff6f8e", 4: "#5cc6ff"}

POST_R = 4.2          # post cap, so string 1 can hug post 2 as the geometry asks
BUSHING_R = 8.2
BUTTON_R = 19.0       # the ring view is 62 units across; the button fills most of it
NUT_TOP, NUT_BOTTOM = 325.5, 334.5
FRETBOARD_HALF_AT_NUT = 58.0
# Strings spread a little towards the bridge, as on the real neck.
SPREAD = 1.07
STRING_W = {1: 1.7, 2: 2.0, 3: 2.4, 4: 1.8}
# Below this the neck and everything on it fade out towards the canvas bottom.
FADE_TOP = 392.0


# ---------------------------------------------------------------- SVG basics

def num(v):
    s = f"{v:.2f}".rstrip("0").rstrip(".")
    return "0" if s in ("", "-0") else s


def mix(c1, c2, t):
    """Colour between c1 (t=0) and c2 (t=1)."""
    a = [int(c1[i:i + 2], 16) for i in (1, 3, 5)]
    b = [int(c2[i:i + 2], 16) for i in (1, 3, 5)]
    return "#" + "".join(f"{round(x + (y - x) * t):02x}" for x, y in zip(a, b))


def lighten(c, t):
    return mix(c, "#ffffff", t)


def darken(c, t):
    return mix(c, "#000000", t)


class Svg:
    def __init__(self, w, h, title):
        self.w, self.h, self.title = w, h, title
        self.defs = []
        self.body = []
        self.count = 0

    def _id(self, prefix):
        self.count += 1
        return f"{prefix}{self.count}"

    @staticmethod
    def _attrs(attrs):
        out = []
        for k, v in attrs.items():
            if v is None:
                continue
            k = k.rstrip("_").replace("_", "-")
            out.append(f'{k}="{num(v) if isinstance(v, (int, float)) else v}"')
        return " ".join(out)

    def add(self, tag, **attrs):
        self.body.append(f"<{tag} {self._attrs(attrs)}/>")

    def open(self, tag, **attrs):
        self.body.append(f"<{tag} {self._attrs(attrs)}>")

    def close(self, tag):
        self.body.append(f"</{tag}>")

    def _stops(self, stops):
        out = []
        for s in stops:
            off, col = s[0], s[1]
            op = s[2] if len(s) > 2 else 1
            out.append(f'<stop offset="{num(off)}" stop-color="{col}" stop-opacity="{num(op)}"/>')
        return "".join(out)

    def linear(self, x1, y1, x2, y2, stops):
        gid = self._id("l")
        self.defs.append(
            f'<linearGradient id="{gid}" gradientUnits="userSpaceOnUse" x1="{num(x1)}" y1="{num(y1)}" '
            f'x2="{num(x2)}" y2="{num(y2)}">{self._stops(stops)}</linearGradient>')
        return f"url(#{gid})"

    def radial(self, cx, cy, r, stops, fx=None, fy=None):
        gid = self._id("r")
        focus = "" if fx is None else f' fx="{num(fx)}" fy="{num(fy)}"'
        self.defs.append(
            f'<radialGradient id="{gid}" gradientUnits="userSpaceOnUse" cx="{num(cx)}" cy="{num(cy)}" '
            f'r="{num(r)}"{focus}>{self._stops(stops)}</radialGradient>')
        return f"url(#{gid})"

    def fading(self, colour, opacity=1.0):
        """Paint of one colour that fades out down the neck, so the picture ends
        softly on any background instead of with a cut."""
        return self.linear(0, FADE_TOP, 0, H, [(0, colour, opacity), (1, colour, 0)])

    def text(self):
        head = (f'<svg xmlns="http://www.w3.org/2000/svg" version="1.2" baseProfile="tiny" '
                f'width="{num(self.w)}" height="{num(self.h)}" viewBox="0 0 {num(self.w)} {num(self.h)}">')
        parts = [head, f"<title>{self.title}</title>"]
        if self.defs:
            parts.append("<defs>" + "".join(self.defs) + "</defs>")
        parts.extend(self.body)
        parts.append("</svg>")
        return "\n".join(parts) + "\n"


def poly_d(points, closed=True):
    d = "M" + " L".join(f"{num(x)} {num(y)}" for x, y in points)
    return d + (" Z" if closed else "")


def circle_d(cx, cy, r):
    """A circle as a path, for shapes that also need a hole cut with even-odd."""
    return (f"M{num(cx - r)} {num(cy)} A{num(r)} {num(r)} 0 1 0 {num(cx + r)} {num(cy)} "
            f"A{num(r)} {num(r)} 0 1 0 {num(cx - r)} {num(cy)} Z")


def arc_d(cx, cy, r, a0, a1):
    """Arc from angle a0 to a1 (degrees, clockwise on screen)."""
    x0, y0 = cx + r * math.cos(math.radians(a0)), cy + r * math.sin(math.radians(a0))
    x1, y1 = cx + r * math.cos(math.radians(a1)), cy + r * math.sin(math.radians(a1))
    large = 1 if (a1 - a0) % 360 > 180 else 0
    return f"M{num(x0)} {num(y0)} A{num(r)} {num(r)} 0 {large} 1 {num(x1)} {num(y1)}"


# ---------------------------------------------------------------- geometry

def cubic(p0, p1, p2, p3, n):
    pts = []
    for i in range(n + 1):
        t = i / n
        u = 1 - t
        pts.append((u ** 3 * p0[0] + 3 * u * u * t * p1[0] + 3 * u * t * t * p2[0] + t ** 3 * p3[0],
                    u ** 3 * p0[1] + 3 * u * u * t * p1[1] + 3 * u * t * t * p2[1] + t ** 3 * p3[1]))
    return pts


def signed_area(poly):
    return sum(poly[i][0] * poly[(i + 1) % len(poly)][1] - poly[(i + 1) % len(poly)][0] * poly[i][1]
               for i in range(len(poly))) / 2.0


def inset(poly, d):
    """Moves each vertex of a closed polygon d units inwards (mitred, limited)."""
    sgn = 1.0 if signed_area(poly) > 0 else -1.0
    n = len(poly)
    out = []
    for i in range(n):
        p0, p1, p2 = poly[i - 1], poly[i], poly[(i + 1) % n]
        normals = []
        for a, b in ((p0, p1), (p1, p2)):
            dx, dy = b[0] - a[0], b[1] - a[1]
            length = math.hypot(dx, dy) or 1.0
            # Left normal of a counter-clockwise (in y-down space) polygon points inwards.
            normals.append((-dy / length * sgn, dx / length * sgn))
        nx, ny = normals[0][0] + normals[1][0], normals[0][1] + normals[1][1]
        length = math.hypot(nx, ny) or 1.0
        nx, ny = nx / length, ny / length
        cos_half = max(0.35, nx * normals[1][0] + ny * normals[1][1])
        out.append((p1[0] + nx * d / cos_half, p1[1] + ny * d / cos_half))
    return out


def translate(poly, dx, dy):
    return [(x + dx, y + dy) for x, y in poly]


def inside(poly, x, y):
    hit = False
    j = len(poly) - 1
    for i in range(len(poly)):
        xi, yi = poly[i]
        xj, yj = poly[j]
        if (yi > y) != (yj > y) and x < (xj - xi) * (y - yi) / (yj - yi) + xi:
            hit = not hit
        j = i
    return hit


def span(poly, y):
    """Leftmost and rightmost crossing of a horizontal line with the polygon."""
    xs = []
    for i in range(len(poly)):
        (x0, y0), (x1, y1) = poly[i - 1], poly[i]
        if (y0 > y) != (y1 > y):
            xs.append(x0 + (x1 - x0) * (y - y0) / (y1 - y0))
    return (min(xs), max(xs)) if xs else None


def clip_convex(subject, clip):
    """Sutherland-Hodgman: subject may be concave, clip must be convex."""
    sgn = 1.0 if signed_area(clip) > 0 else -1.0

    def keep(p, a, b):
        return sgn * ((b[0] - a[0]) * (p[1] - a[1]) - (b[1] - a[1]) * (p[0] - a[0])) >= 0

    def cut(p, q, a, b):
        x1, y1, x2, y2 = p[0], p[1], q[0], q[1]
        x3, y3, x4, y4 = a[0], a[1], b[0], b[1]
        den = (x1 - x2) * (y3 - y4) - (y1 - y2) * (x3 - x4)
        t = ((x1 - x3) * (y3 - y4) - (y1 - y3) * (x3 - x4)) / den
        return (x1 + t * (x2 - x1), y1 + t * (y2 - y1))

    out = subject
    for i in range(len(clip)):
        a, b = clip[i - 1], clip[i]
        src, out = out, []
        if not src:
            break
        prev = src[-1]
        for cur in src:
            if keep(cur, a, b):
                if not keep(prev, a, b):
                    out.append(cut(prev, cur, a, b))
                out.append(cur)
            elif keep(prev, a, b):
                out.append(cut(prev, cur, a, b))
            prev = cur
    return out


def headstock_outline():
    """Closed outline of the head down to the nut: a crowned top with two
    lobes, straight sides carrying the tuners, and a flared throat into the
    neck. Built on the right and mirrored, so it is symmetric."""
    right = []
    segments = [
        ((150, 13), (163, 13), (171, 27), (185, 29)),
        ((185, 29), (202, 31), (219, 17), (230, 27)),
        ((230, 27), (239, 35), (233, 52), (229, 66)),
        ((229, 66), (227, 140), (227, 220), (225, 258)),
        ((225, 258), (222, 300), (208, 304), (150 + FRETBOARD_HALF_AT_NUT, NUT_Y)),
    ]
    for i, seg in enumerate(segments):
        pts = cubic(*seg, 40 if i != 3 else 60)
        right.extend(pts if i == 0 else pts[1:])
    left = [(2 * CX - x, y) for x, y in reversed(right)]
    return right + left[1:-1]


def fretboard_outline():
    half_bottom = FRETBOARD_HALF_AT_NUT * SPREAD
    return [(CX - FRETBOARD_HALF_AT_NUT, NUT_Y), (CX + FRETBOARD_HALF_AT_NUT, NUT_Y),
            (CX + half_bottom, H + 2), (CX - half_bottom, H + 2)]


def tangent_point(post, towards, r):
    """Where a string leaving `towards` touches the post of radius r, on the
    side facing the middle of the head (strings wind on the inside)."""
    px, py = post
    dx, dy = towards[0] - px, towards[1] - py
    d = math.hypot(dx, dy)
    a = math.atan2(dy, dx)
    b = math.acos(r / d)
    cands = [(px + r * math.cos(a + s * b), py + r * math.sin(a + s * b)) for s in (1, -1)]
    return min(cands, key=lambda p: abs(p[0] - CX))


def string_path(n):
    """Points of string n: post centre, where it leaves the post, the nut, the canvas bottom."""
    nut = (STRING_X[n], NUT_Y)
    bottom = (CX + (STRING_X[n] - CX) * SPREAD, H + 4)
    return [POSTS[n], tangent_point(POSTS[n], nut, POST_R + 0.6), nut, bottom]


# ---------------------------------------------------------------- headstock

WOOD_LIGHT = "#d08f52"
WOOD_MID = "#a9632f"
WOOD_DARK = "#6d3619"


def draw_wood_face(svg, face, rng):
    """Koa face: a lit gradient, curly figure across the grain, grain lines
    along it, and a lacquer sheen; all kept inside `face`."""
    svg.add("path", d=poly_d(face), fill=svg.linear(70, 20, 240, 330, [
        (0, WOOD_LIGHT), (0.45, WOOD_MID), (1, mix(WOOD_MID, WOOD_DARK, 0.6))]))

    # Curl: soft bands across the grain that give koa its shimmer.
    y = 40.0
    k = 0
    while y < NUT_Y - 6:
        thick = rng.uniform(3.0, 9.0)
        tilt = rng.uniform(-0.06, 0.06)
        band = [(0, y - 200 * tilt), (W, y + 100 * tilt),
                (W, y + thick + 100 * tilt), (0, y + thick - 200 * tilt)]
        piece = clip_convex(face, band)
        if len(piece) > 2:
            light = k % 2 == 0
            svg.add("path", d=poly_d(piece), fill="#ffd9a0" if light else "#5a2a10",
                    fill_opacity=rng.uniform(0.04, 0.08) if light else rng.uniform(0.04, 0.075))
        y += thick + rng.uniform(1.0, 6.0)
        k += 1

    # Grain lines follow the taper of the head so they never leave it.
    def half_width(yy):
        s = span(face, min(max(yy, 70.0), NUT_Y - 8.0))
        return (s[1] - s[0]) / 2.0

    for i in range(58):
        u = -1.0 + 2.0 * (i + rng.uniform(0.1, 0.9)) / 58
        amp = rng.uniform(0.6, 2.4)
        freq = rng.uniform(0.015, 0.04)
        phase = rng.uniform(0, 6.3)
        run, best = [], []
        yy = 8.0
        while yy <= NUT_Y + 2:
            x = CX + u * half_width(yy) + amp * math.sin(yy * freq + phase)
            if inside(face, x, yy):
                run.append((x, yy))
            else:
                if len(run) > len(best):
                    best = run
                run = []
            yy += 3.0
        if len(run) > len(best):
            best = run
        if len(best) < 3:
            continue
        dark = rng.random() < 0.72
        svg.add("path", d=poly_d(best, closed=False), fill="none",
                stroke="#4a220c" if dark else "#f3c48a",
                stroke_width=rng.uniform(0.35, 1.3),
                stroke_opacity=rng.uniform(0.10, 0.28) if dark else rng.uniform(0.07, 0.15),
                stroke_linecap="round", stroke_linejoin="round")

    # Lacquer: one broad diagonal reflection and a narrow one beside it.
    for x0, width, strength in ((60, 70, 0.13), (150, 16, 0.09)):
        band = [(x0, 0), (x0 + width, 0), (x0 + width - 120, 450), (x0 - 120, 450)]
        piece = clip_convex(face, band)
        if len(piece) > 2:
            mx = x0 + width / 2
            svg.add("path", d=poly_d(piece), fill=svg.linear(mx - width / 2, 200, mx + width / 2, 200, [
                (0, "#ffffff", 0), (0.5, "#ffffff", strength), (1, "#ffffff", 0)]))

    # Light falls from the upper left: the lower right of the face sits in shade.
    svg.add("path", d=poly_d(face), fill=svg.linear(80, 40, 250, 340, [
        (0, "#fff4e0", 0.10), (0.5, "#000000", 0), (1, "#000000", 0.22)]))


def draw_pearl_inlay(svg):
    # A diamond with two dots, in mother of pearl, high on the crown.
    pearl = svg.linear(140, 40, 162, 66, [
        (0, "#fbf7ee"), (0.3, "#e3f1f3"), (0.55, "#f6e5ef"), (0.8, "#fdf3dc"), (1, "#d9e8ec")])
    diamond = [(150, 37), (158.5, 52), (150, 67), (141.5, 52)]
    svg.add("path", d=poly_d(translate(diamond, 0.8, 1.0)), fill="#2a1206", fill_opacity=0.45)
    svg.add("path", d=poly_d(diamond), fill=pearl, stroke="#5a3418", stroke_width=0.6, stroke_opacity=0.7)
    svg.add("path", d=poly_d([(150, 40), (156, 52), (150, 52)]), fill="#ffffff", fill_opacity=0.35)
    for x in (133.5, 166.5):
        svg.add("circle", cx=x + 0.6, cy=52.8, r=2.6, fill="#2a1206", fill_opacity=0.4)
        svg.add("circle", cx=x, cy=52, r=2.5,
                fill=svg.radial(x - 0.8, 51.2, 3.0, [(0, "#ffffff"), (0.6, "#eaf2f2"), (1, "#efdde9")]),
                stroke="#5a3418", stroke_width=0.5, stroke_opacity=0.7)


def draw_tuner(svg, n):
    """Sideways tuner: a housing peeking past the edge, a shaft, a pearl button."""
    px, py = PEGS[n]
    side = 1 if px > CX else -1
    edge = CX + side * 76.5
    # Housing and shaft, lit from above.
    metal_v = svg.linear(0, py - 7, 0, py + 7, [(0, "#f4f4f2"), (0.35, "#c9c8c4"), (0.7, "#7d7b78"), (1, "#a9a7a2")])
    x0, x1 = sorted((edge - side * 3, edge + side * 9))
    svg.add("rect", x=x0 + 1.2, y=py - 6 + 2.2, width=x1 - x0, height=12, rx=2.5, fill="#000000", fill_opacity=0.3)
    svg.add("rect", x=x0, y=py - 6, width=x1 - x0, height=12, rx=2.5, fill=metal_v,
            stroke="#3e3c3a", stroke_width=0.5, stroke_opacity=0.7)
    s0, s1 = sorted((edge + side * 8, px))
    shaft = svg.linear(0, py - 3, 0, py + 3, [(0, "#fafaf8"), (0.4, "#bdbcb8"), (1, "#6c6a67")])
    svg.add("rect", x=s0, y=py - 3.2 + 1.6, width=s1 - s0, height=6.4, fill="#000000", fill_opacity=0.25)
    svg.add("rect", x=s0, y=py - 3.2, width=s1 - s0, height=6.4, fill=shaft)

    # Button: a chrome bezel around a pearl face.
    svg.add("circle", cx=px + 1.6, cy=py + 2.6, r=BUTTON_R + 0.6, fill="#000000", fill_opacity=0.28)
    svg.add("circle", cx=px + 0.8, cy=py + 1.3, r=BUTTON_R + 0.2, fill="#000000", fill_opacity=0.25)
    svg.add("circle", cx=px, cy=py, r=BUTTON_R, fill=svg.linear(px - 14, py - 16, px + 14, py + 16, [
        (0, "#ffffff"), (0.3, "#c9c8c6"), (0.62, "#6b6a69"), (0.85, "#a7a6a3"), (1, "#e9e8e5")]),
        stroke="#2e2c2a", stroke_width=0.6)
    svg.add("circle", cx=px, cy=py, r=BUTTON_R - 2.6, fill=svg.linear(px - 10, py - 12, px + 10, py + 12, [
        (0, "#5a5856"), (0.5, "#9a9895"), (1, "#f4f3f0")]))
    face_r = BUTTON_R - 3.4
    svg.add("circle", cx=px, cy=py, r=face_r, fill=svg.radial(px - 4, py - 5, face_r * 1.35, [
        (0, "#ffffff"), (0.35, "#f6f1e7"), (0.7, "#e4dccb"), (1, "#bdb29c")]))
    # Iridescence of the shell, strongest across the middle.
    svg.add("circle", cx=px, cy=py, r=face_r, fill=svg.linear(px - face_r, py + face_r, px + face_r, py - face_r, [
        (0, "#8fd3e0", 0.0), (0.3, "#8fd3e0", 0.22), (0.5, "#f2a7c9", 0.18), (0.7, "#f6d58a", 0.18),
        (1, "#f6d58a", 0.0)]))
    # Soft specular highlight, upper left.
    hx, hy = px - 5, py - 6
    svg.add("ellipse", cx=hx, cy=hy, rx=8.0, ry=4.6, transform=f"rotate(-35 {num(hx)} {num(hy)})",
            fill=svg.radial(hx, hy, 8.0, [(0, "#ffffff", 0.9), (1, "#ffffff", 0)]))
    svg.add("circle", cx=px, cy=py, r=face_r, fill="none", stroke="#6e6453", stroke_width=0.6, stroke_opacity=0.6)


def draw_string(svg, pts, w):
    post, leave, nut, bottom = pts
    # Shadows: close to the head's face, further from the fretboard the string stands over.
    svg.add("path", d=poly_d(translate([leave, nut], 1.1, 1.4), closed=False), fill="none", stroke="#120700",
            stroke_opacity=0.38, stroke_width=w * 1.1, stroke_linecap="round")
    svg.add("path", d=poly_d(translate([nut, bottom], 2.2, 0.6), closed=False), fill="none",
            stroke=svg.fading("#120700", 0.5), stroke_width=w * 1.1)
    svg.add("path", d=poly_d([leave, nut, bottom], closed=False), fill="none", stroke=svg.fading("#c9bda2"),
            stroke_width=w, stroke_linecap="round", stroke_linejoin="round")
    svg.add("path", d=poly_d(translate([leave, nut, bottom], -w * 0.18, 0), closed=False), fill="none",
            stroke=svg.fading("#fffaf0", 0.85), stroke_width=w * 0.42, stroke_linecap="round",
            stroke_linejoin="round")


def draw_post(svg, n):
    px, py = POSTS[n]
    w = STRING_W[n]
    # The winding: a few turns of string around the post, then the post's cap.
    svg.add("circle", cx=px + 0.5, cy=py + 0.7, r=POST_R + 1.2, fill="#000000", fill_opacity=0.35)
    svg.add("circle", cx=px, cy=py, r=POST_R + w * 0.55, fill="none", stroke="#d9cfb8", stroke_width=w * 1.1)
    svg.add("path", d=arc_d(px, py, POST_R + w * 0.55, 200, 300), fill="none", stroke="#ffffff",
            stroke_opacity=0.7, stroke_width=w * 0.45, stroke_linecap="round")
    svg.add("circle", cx=px, cy=py, r=POST_R, fill=svg.radial(px - 1.6, py - 1.8, POST_R * 1.6, [
        (0, "#ffffff"), (0.35, "#d7d6d2"), (0.8, "#7c7a77"), (1, "#5b5957")]),
        stroke="#2d2b29", stroke_width=0.5)
    # The slot the string's end goes through.
    svg.add("rect", x=px - 2.6, y=py - 0.7, width=5.2, height=1.4, rx=0.7, fill="#1c1b1a", fill_opacity=0.85,
            transform=f"rotate(-20 {num(px)} {num(py)})")


def draw_bushing(svg, n):
    px, py = POSTS[n]
    svg.add("circle", cx=px + 1.2, cy=py + 1.8, r=BUSHING_R + 0.6, fill="#1a0a02", fill_opacity=0.45)
    svg.add("circle", cx=px, cy=py, r=BUSHING_R, fill=svg.linear(px - 7, py - 7, px + 7, py + 7, [
        (0, "#f7f6f3"), (0.45, "#b3b1ad"), (1, "#5f5d5a")]), stroke="#34322f", stroke_width=0.5)
    svg.add("circle", cx=px, cy=py, r=BUSHING_R - 2.2, fill=svg.linear(px - 5, py - 5, px + 5, py + 5, [
        (0, "#6a6865"), (1, "#e8e7e3")]))


def fade_factor(y):
    return 1.0 if y <= FADE_TOP else max(0.0, (H - y) / (H - FADE_TOP))


def draw_fretboard(svg, rng):
    board = fretboard_outline()
    svg.add("path", d=poly_d(board), fill=svg.fading("#3c251b"))
    # Darker towards the edges, built from strokes kept inside the board.
    for sgn in (-1, 1):
        for w, op in ((16, 0.10), (9, 0.14), (4, 0.2)):
            x0 = CX + sgn * (FRETBOARD_HALF_AT_NUT - w / 2)
            x1 = CX + sgn * (FRETBOARD_HALF_AT_NUT * SPREAD - w / 2)
            svg.add("line", x1=x0, y1=NUT_Y, x2=x1, y2=H + 2, stroke=svg.fading("#0c0503", op), stroke_width=w)
    for i in range(26):
        u = -0.97 + 1.94 * (i + rng.uniform(0.1, 0.9)) / 26
        top = CX + u * FRETBOARD_HALF_AT_NUT
        bottom = CX + u * FRETBOARD_HALF_AT_NUT * SPREAD
        wob = rng.uniform(-1.2, 1.2)
        pts = [(top + (bottom - top) * t + wob * math.sin(t * 3.1), NUT_Y + (H - NUT_Y + 2) * t)
               for t in (0, 0.25, 0.5, 0.75, 1.0)]
        dark = rng.random() < 0.6
        width = rng.uniform(0.3, 1.0)
        op = rng.uniform(0.2, 0.4) if dark else 0.18
        svg.add("path", d=poly_d(pts, closed=False), fill="none",
                stroke=svg.fading("#0d0503" if dark else "#7a4a33", op), stroke_width=width)
    # The edges catch a little light.
    for sgn in (-1, 1):
        svg.add("line", x1=CX + sgn * (FRETBOARD_HALF_AT_NUT - 0.6), y1=NUT_Y,
                x2=CX + sgn * (FRETBOARD_HALF_AT_NUT * SPREAD - 0.6), y2=H + 2,
                stroke=svg.fading("#c48a5e", 0.35 if sgn < 0 else 0.15), stroke_width=1.0)
    # Frets where a 13-inch scale puts them at this drawing's string spacing.
    for fy in (387.5, 442.0):
        s = span(board, fy)
        x0, x1 = s[0] + 0.4, s[1] - 0.4
        k = fade_factor(fy)
        svg.add("rect", x=x0, y=fy + 1.6, width=x1 - x0, height=1.8, fill="#000000", fill_opacity=0.45 * k)
        svg.add("rect", x=x0, y=fy - 1.5, width=x1 - x0, height=3.0, rx=1.2, fill_opacity=k,
                fill=svg.linear(0, fy - 1.5, 0, fy + 1.5, [(0, "#ffffff"), (0.45, "#d6d5d2"), (1, "#6f6d6a")]))


def draw_nut(svg):
    x0, x1 = CX - FRETBOARD_HALF_AT_NUT - 0.5, CX + FRETBOARD_HALF_AT_NUT + 0.5
    svg.add("rect", x=x0, y=NUT_BOTTOM - 0.5, width=x1 - x0, height=4.0,
            fill=svg.linear(0, NUT_BOTTOM, 0, NUT_BOTTOM + 4, [(0, "#000000", 0.55), (1, "#000000", 0)]))
    svg.add("rect", x=x0, y=NUT_TOP, width=x1 - x0, height=NUT_BOTTOM - NUT_TOP, rx=1.5,
            fill=svg.linear(0, NUT_TOP, 0, NUT_BOTTOM, [(0, "#fffaf0"), (0.5, "#ece2c9"), (1, "#bfb093")]),
            stroke="#8c7d60", stroke_width=0.5)
    for n, x in STRING_X.items():
        svg.add("rect", x=x - STRING_W[n] * 0.75, y=NUT_TOP + 0.4, width=STRING_W[n] * 1.5, height=NUT_BOTTOM - NUT_TOP - 0.8,
                rx=0.6, fill="#5a4a30", fill_opacity=0.55)


def make_headstock():
    rng = random.Random(20240611)
    svg = Svg(W, H, "Ukulele head with four tuners")
    outline = headstock_outline()

    # Soft drop shadow on the dark screen.
    for (dx, dy, op) in ((6, 9, 0.10), (4, 6, 0.14), (2, 3, 0.22)):
        svg.add("path", d=poly_d(translate(outline, dx, dy)), fill="#000000", fill_opacity=op)
        board = fretboard_outline()
        svg.add("path", d=poly_d(translate(board, dx, 0)), fill=svg.fading("#000000", op))

    # Tuners behind the head's edge go first; their buttons sit beside it.
    for n in (1, 2, 3, 4):
        draw_tuner(svg, n)

    # Edge, cream binding, black purfling, then the face.
    svg.add("path", d=poly_d(outline), fill="#3f1e0b")
    svg.add("path", d=poly_d(inset(outline, 0.9)), fill=svg.linear(0, 0, 0, 330, [
        (0, "#f6ead0"), (1, "#d6c29a")]))
    svg.add("path", d=poly_d(inset(outline, 3.0)), fill="#1b0e07")
    face = inset(outline, 3.7)
    draw_wood_face(svg, face, rng)
    draw_pearl_inlay(svg)

    draw_fretboard(svg, rng)
    for n in (1, 2, 3, 4):
        draw_bushing(svg, n)
    draw_nut(svg)
    # Strings 1 and 4 pass right beside the lower posts; the posts' windings
    # go over them so they read as touching the post, not crossing it.
    for n in (1, 4, 2, 3):
        draw_string(svg, string_path(n), STRING_W[n])
    for n in (1, 2, 3, 4):
        draw_post(svg, n)
    return svg


# ---------------------------------------------------------------- highlights

# Per device class: how wide (in head units) and how strong the glow is. The
# head is drawn between 145 and 560 points wide, so the smaller the class the
# wider the glow in the picture's own units, keeping it about the same on screen.
HIGHLIGHT_VARIANTS = {
    "_string": {"halo": 23.0, "core": 4.2, "strength": 1.00, "layers": 7},         # 480-pt phones
    "_string_5": {"halo": 20.5, "core": 3.7, "strength": 0.97, "layers": 8},       # 568
    "_string_6": {"halo": 18.5, "core": 3.3, "strength": 0.94, "layers": 9},       # 667
    "_string_6plus": {"halo": 16.5, "core": 3.0, "strength": 0.92, "layers": 10},  # larger phones
    "_string_iPad": {"halo": 15.0, "core": 2.7, "strength": 0.90, "layers": 11},   # 1024-pt pads
    "_string_iPad_Pro": {"halo": 14.0, "core": 2.5, "strength": 0.88, "layers": 12},  # larger pads
}

HIGHLIGHT_PREFIXES = {"1st": ([1], 1), "2nd": ([2], 2), "3rd": ([3], 3), "4th": ([4], 4),
                      # Both strings glow in the first ring's colour, as both pegs then show ring 1.
                      "1st_4th": ([1, 4], 1)}


def draw_glow(svg, n, colour, v):
    post, leave, nut, bottom = string_path(n)
    path = poly_d([post, leave, nut, bottom], closed=False)
    halo, core, strength, layers = v["halo"], v["core"], v["strength"], v["layers"]
    # Halo around the post and a spark on the nut, where the string is anchored.
    for (cx, cy), r, op in ((post, halo * 1.15, 0.75), (nut, halo * 0.9, 0.6)):
        svg.add("circle", cx=cx, cy=cy, r=r, fill=svg.radial(cx, cy, r, [
            (0, lighten(colour, 0.3), op * strength), (0.45, colour, 0.35 * strength), (1, colour, 0)]))
    # Translucent strokes from wide to narrow add up to a soft falloff.
    for i in range(layers):
        t = i / (layers - 1)
        width = halo - (halo - core) * t ** 0.8
        svg.add("path", d=path, fill="none", stroke=svg.fading(colour, (0.20 + 0.10 * t) * strength),
                stroke_width=width, stroke_linecap="round", stroke_linejoin="round")
    svg.add("path", d=path, fill="none", stroke=svg.fading(lighten(colour, 0.45), 0.95), stroke_width=core,
            stroke_linecap="round", stroke_linejoin="round")
    svg.add("path", d=path, fill="none", stroke=svg.fading("#ffffff", 0.9), stroke_width=max(0.8, core * 0.38),
            stroke_linecap="round", stroke_linejoin="round")


def make_highlight(prefix, suffix):
    strings, ring = HIGHLIGHT_PREFIXES[prefix]
    names = {1: "first", 2: "second", 3: "third", 4: "fourth"}
    svg = Svg(W, H, "Glow along the " + " and ".join(names[n] for n in strings) + " string")
    for n in strings:
        draw_glow(svg, n, ACCENT[ring], HIGHLIGHT_VARIANTS[suffix])
    return svg


# ---------------------------------------------------------------- rings

def make_ring(n):
    c = ACCENT[n]
    svg = Svg(100, 100, f"Lit ring for peg {n}")
    # Clear inside radius 30 so the button shows through; the 62-unit view makes
    # 100 ring units span 62 head units, and the button is 38 of them across.
    svg.add("circle", cx=50, cy=50, r=50, fill=svg.radial(50, 50, 50, [
        (0, c, 0), (0.60, c, 0), (0.68, c, 0.45), (0.80, c, 0.65), (0.90, c, 0.28), (1, c, 0)]))
    # Dial ticks outside the band, as on a tuner's scale.
    for i in range(24):
        a = math.radians(i * 15)
        r0, r1 = (43.0, 47.5) if i % 6 == 0 else (43.5, 45.8)
        svg.add("line", x1=50 + r0 * math.cos(a), y1=50 + r0 * math.sin(a),
                x2=50 + r1 * math.cos(a), y2=50 + r1 * math.sin(a), stroke=lighten(c, 0.35),
                stroke_width=1.6 if i % 6 == 0 else 1.0, stroke_opacity=0.9, stroke_linecap="round")
    svg.add("circle", cx=50, cy=50, r=37.5, fill="none", stroke=darken(c, 0.55), stroke_width=9.6, stroke_opacity=0.55)
    svg.add("circle", cx=50, cy=50, r=37.5, fill="none", stroke_width=7.6, stroke=svg.linear(20, 15, 80, 85, [
        (0, lighten(c, 0.55)), (0.45, c), (1, darken(c, 0.25))]))
    svg.add("path", d=arc_d(50, 50, 37.5, 195, 295), fill="none", stroke="#ffffff", stroke_opacity=0.75,
            stroke_width=2.2, stroke_linecap="round")
    svg.add("path", d=arc_d(50, 50, 37.5, 20, 70), fill="none", stroke="#ffffff", stroke_opacity=0.3,
            stroke_width=1.2, stroke_linecap="round")
    svg.add("circle", cx=50, cy=50, r=33.5, fill="none", stroke=lighten(c, 0.6), stroke_width=0.7, stroke_opacity=0.6)
    return svg


# ---------------------------------------------------------------- lamps

LAMPS = {"green": ("#6ff08e", "#0f7a35"), "yellow": ("#ffd24d", "#b86a00")}


def make_lamp(colour_name, size):
    bright, deep = LAMPS[colour_name]
    s = float(size)
    c = s / 2
    large = size >= 128
    svg = Svg(size, size, f"{colour_name.capitalize()} lamp")
    # Halo on the panel around the bezel.
    svg.add("circle", cx=c, cy=c, r=c, fill=svg.radial(c, c, c, [
        (0, bright, 0), (0.74, bright, 0), (0.80, bright, 0.45), (1, bright, 0)]))
    # Bezel: darker at the top, as if recessed into the panel.
    r_bezel = 0.40 * s
    svg.add("circle", cx=c, cy=c + s * 0.012, r=r_bezel + s * 0.01, fill="#000000", fill_opacity=0.5)
    svg.add("circle", cx=c, cy=c, r=r_bezel, fill=svg.linear(c, c - r_bezel, c, c + r_bezel, [
        (0, "#16141a"), (0.5, "#3b3742"), (1, "#8a8494")]))
    if large:
        # Knurled bezel edge.
        for i in range(60):
            a = math.radians(i * 6)
            r0, r1 = r_bezel - s * 0.028, r_bezel - s * 0.004
            svg.add("line", x1=c + r0 * math.cos(a), y1=c + r0 * math.sin(a), x2=c + r1 * math.cos(a),
                    y2=c + r1 * math.sin(a), stroke="#000000" if i % 2 else "#ffffff",
                    stroke_opacity=0.35 if i % 2 else 0.10, stroke_width=s * 0.008)
    r_seat = 0.355 * s
    svg.add("circle", cx=c, cy=c, r=r_seat, fill="#0b0a0d")
    r_lens = 0.33 * s
    svg.add("circle", cx=c, cy=c, r=r_lens, fill=svg.radial(c, c + s * 0.06, r_lens * 1.08, [
        (0, lighten(bright, 0.55)), (0.35, bright), (0.8, mix(bright, deep, 0.6)), (1, deep)]))
    if large:
        # Fresnel rings in the lens.
        r = s * 0.05
        while r < r_lens - s * 0.02:
            svg.add("circle", cx=c, cy=c, r=r, fill="none", stroke=deep, stroke_opacity=0.22, stroke_width=s * 0.006)
            svg.add("circle", cx=c, cy=c - s * 0.003, r=r, fill="none", stroke="#ffffff", stroke_opacity=0.12,
                    stroke_width=s * 0.004)
            r += s * 0.04
        svg.add("circle", cx=c, cy=c, r=r_lens - s * 0.006, fill="none", stroke=lighten(bright, 0.5),
                stroke_opacity=0.35, stroke_width=s * 0.008)
    # Glossy dome: a bright cap on the upper half and a faint bounce below.
    gy = c - r_lens * 0.42
    svg.add("ellipse", cx=c, cy=gy, rx=r_lens * 0.72, ry=r_lens * 0.46, fill=svg.linear(c, gy - r_lens * 0.46, c, gy + r_lens * 0.46, [
        (0, "#ffffff", 0.9), (0.55, "#ffffff", 0.25), (1, "#ffffff", 0.0)]))
    svg.add("ellipse", cx=c, cy=c + r_lens * 0.68, rx=r_lens * 0.45, ry=r_lens * 0.14,
            fill=svg.radial(c, c + r_lens * 0.68, r_lens * 0.45, [(0, "#ffffff", 0.35), (1, "#ffffff", 0)]))
    if large:
        svg.add("circle", cx=c - r_lens * 0.42, cy=c - r_lens * 0.5, r=s * 0.025, fill="#ffffff", fill_opacity=0.95)
    return svg


# ---------------------------------------------------------------- icons

def icon(title, size=64):
    return Svg(size, size, title)


def line_style(width):
    return {"fill": "none", "stroke": UI_TEXT, "stroke_width": width, "stroke_linecap": "round",
            "stroke_linejoin": "round"}


def make_arrow(direction):
    svg = icon(f"Arrow {direction}")
    pts = [(38, 15), (21, 32), (38, 49)]
    if direction == "right":
        pts = [(64 - x, y) for x, y in pts]
    svg.add("path", d=poly_d(pts, closed=False), **line_style(5.5))
    return svg


def make_gear():
    svg = icon("Settings")
    teeth = 8
    r_out, r_in = 25.0, 19.5
    pts = []
    for i in range(teeth):
        a = 2 * math.pi * i / teeth
        half = math.pi / teeth
        # Tooth: flanks lean inwards so the gear looks cut, not stamped.
        for da, r in ((-half * 0.95, r_in), (-half * 0.45, r_out), (half * 0.45, r_out), (half * 0.95, r_in)):
            pts.append((32 + r * math.cos(a + da - math.pi / 2), 32 + r * math.sin(a + da - math.pi / 2)))
    svg.add("path", d=poly_d(pts), **line_style(3.8))
    svg.add("circle", cx=32, cy=32, r=8, **line_style(3.8))
    return svg


def make_tuning_fork():
    svg = icon("Tuning fork")
    # Two tines joined by a U, then the stem and its ball.
    svg.add("path", d="M25.5 8 V31 A6.5 6.5 0 0 0 38.5 31 V8", **line_style(4.4))
    svg.add("path", d="M32 38 V53", **line_style(4.4))
    svg.add("circle", cx=32, cy=55.5, r=3.2, fill=UI_TEXT)
    # Sound leaving the tines on both sides.
    for r, op in ((12, 1.0), (18, 0.55)):
        svg.add("path", d=arc_d(32, 16, r, -28, 28), stroke_opacity=op, **line_style(3.2))
        svg.add("path", d=arc_d(32, 16, r, 152, 208), stroke_opacity=op, **line_style(3.2))
    return svg


def make_about():
    svg = icon("About")
    svg.add("circle", cx=32, cy=32, r=26, **line_style(4.2))
    svg.add("circle", cx=32, cy=19.5, r=3.4, fill=UI_TEXT)
    svg.add("path", d="M27.5 28 H32.5 V46 M27 46.5 H38", **line_style(4.2))
    return svg


# Chord icons: a small diagram on a dark board; variants differ by colour and marks.
CHORD_ICONS = {
    # name: (accent, badge letter, open tuning?)
    "chord_icon": ("#f2b33d", None, False),
    "chord_icon_b": ("#5cc6ff", "B", False),
    "chord_sl_icon": ("#4fe08a", None, True),
    "chord_icon_slb": ("#c28cff", "B", True),
}


def glyph_b(svg, x, y, h, colour, width):
    """A capital B from strokes, so no font is needed to draw it."""
    w = h * 0.55
    ym = y + h * 0.48
    r1 = (ym - y) / 2
    r2 = (y + h - ym) / 2
    d = (f"M{num(x)} {num(y + h)} V{num(y)} H{num(x + w - r1)} "
         f"A{num(r1)} {num(r1)} 0 0 1 {num(x + w - r1)} {num(ym)} H{num(x)} "
         f"M{num(x + w - r1)} {num(ym)} H{num(x + w - r2 + 0.8)} "
         f"A{num(r2)} {num(r2)} 0 0 1 {num(x + w - r2 + 0.8)} {num(y + h)} H{num(x)}")
    svg.add("path", d=d, fill="none", stroke=colour, stroke_width=width, stroke_linecap="round",
            stroke_linejoin="round")


def make_chord_icon(name, large):
    accent, badge, open_tuning = CHORD_ICONS[name]
    size = 128 if large else 64
    k = size / 64.0
    svg = Svg(size, size, "Chord library")
    frets = 4
    # Without a badge the diagram sits in the middle; with one it moves left to make room.
    left = (15 if badge else 17) * k
    right = left + 30 * k
    top, bottom = 15 * k, 57 * k
    pitch = (bottom - top) / frets
    xs = [left + (right - left) * i / 3 for i in range(4)]
    line = 2.4 * k if not large else 3.4
    if large:
        # On pads the board itself shows, in the head's rosewood.
        svg.add("rect", x=left - 5 * k, y=top, width=right - left + 10 * k, height=bottom - top + 2 * k,
                rx=2.5 * k, fill=svg.linear(0, top, 0, bottom, [(0, "#5a3826"), (1, "#2c1a12")]))
    for i in range(1, frets + 1):
        y = top + pitch * i
        svg.add("line", x1=left, y1=y, x2=right, y2=y, stroke="#c9c6c0" if large else UI_TEXT,
                stroke_opacity=0.85, stroke_width=line * 0.75, stroke_linecap="round")
    # Open strings ring: in an open tuning they are drawn in the accent colour.
    string_colour = accent if open_tuning else UI_TEXT
    for i, x in enumerate(xs):
        svg.add("line", x1=x, y1=top, x2=x, y2=bottom, stroke=string_colour,
                stroke_width=line * (0.95 if open_tuning else 0.85), stroke_linecap="round")
    svg.add("line", x1=left - line * 0.4, y1=top, x2=right + line * 0.4, y2=top, stroke=UI_TEXT,
            stroke_width=line * 2.0, stroke_linecap="round")
    dot_r = 4.6 * k
    if open_tuning:
        # The chord of an open tuning is all four strings open.
        for x in xs:
            svg.add("circle", cx=x, cy=top - 7.2 * k, r=3.2 * k, fill="none", stroke=accent, stroke_width=2.2 * k)
    else:
        for string, fret in ((1, 2), (2, 3), (3, 2)):
            cx, cy = xs[string], top + pitch * (fret - 0.5)
            svg.add("circle", cx=cx, cy=cy, r=dot_r + 1.2 * k, fill=UI_BG)
            svg.add("circle", cx=cx, cy=cy, r=dot_r, fill=accent)
            if large:
                svg.add("circle", cx=cx - dot_r * 0.35, cy=cy - dot_r * 0.35, r=dot_r * 0.35, fill="#ffffff",
                        fill_opacity=0.5)
    if badge:
        bx, by, br = 51 * k, 51 * k, 10.5 * k
        svg.add("circle", cx=bx, cy=by, r=br + 2.2 * k, fill=UI_BG)
        svg.add("circle", cx=bx, cy=by, r=br, fill=accent)
        if large:
            svg.add("circle", cx=bx, cy=by, r=br - 1.6, fill="none", stroke="#ffffff", stroke_opacity=0.35,
                    stroke_width=1.4)
        glyph_b(svg, bx - 3.9 * k, by - 6 * k, 12 * k, UI_BG, 2.5 * k)
    return svg


# ---------------------------------------------------------------- output

def all_images():
    yield "headstock", make_headstock()
    for prefix in HIGHLIGHT_PREFIXES:
        for suffix in HIGHLIGHT_VARIANTS:
            yield prefix + suffix, make_highlight(prefix, suffix)
    for n in (1, 2, 3, 4):
        yield f"ring{n}", make_ring(n)
    for colour in LAMPS:
        for size in (64, 128):
            yield f"{colour}{size}", make_lamp(colour, size)
    yield "arrow_left", make_arrow("left")
    yield "arrow_right", make_arrow("right")
    yield "settings", make_gear()
    yield "tuning_fork", make_tuning_fork()
    yield "about", make_about()
    for name in CHORD_ICONS:
        yield name, make_chord_icon(name, False)
        yield name + "_large", make_chord_icon(name, True)


def main():
    os.makedirs(OUT, exist_ok=True)
    count = 0
    for stem, svg in all_images():
        with open(os.path.join(OUT, stem + ".svg"), "w", encoding="utf-8", newline="\n") as f:
            f.write(svg.text())
        count += 1
    print(f"wrote {count} images to {OUT}")


if __name__ == "__main__":
    main()
