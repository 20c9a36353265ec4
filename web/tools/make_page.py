#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 Morvane Labs
# SPDX-License-Identifier: GPL-3.0-or-later
"""Writes the page's files into the web build's output folder, beside the compiled
core: the page's own sources, the art (the SVG sources themselves), the sounds,
layouts and geometry, one string table per language made from the translation
sources, the icons and the install manifest, and build.json, which lists what
the page may fetch (the service worker caches exactly that)."""
import argparse, hashlib, json, os, shutil, subprocess, sys
import xml.etree.ElementTree as ET

APP_NAME = "Ukulele Tuner"


def ts_tables(path):
    """{context: {source: translation}}: an unfinished or empty translation is
    missing, as the app's own reader takes it."""
    root = ET.parse(path).getroot()
    tables = {}
    for context in root.iter("context"):
        name = context.findtext("name", "")
        table = tables.setdefault(name, {})
        for message in context.iter("message"):
            source = message.find("source")
            translation = message.find("translation")
            if source is None or translation is None:
                continue
            if "unfinished" in translation.get("type", "") or not (translation.text or ""):
                continue
            table[source.text or ""] = translation.text
    return root.get("language", ""), tables


def copy_if_changed(src, dst):
    os.makedirs(os.path.dirname(dst), exist_ok=True)
    if not os.path.exists(dst) or open(src, "rb").read() != open(dst, "rb").read():
        shutil.copyfile(src, dst)


def write_if_changed(dst, data):
    os.makedirs(os.path.dirname(dst), exist_ok=True)
    data = data.encode() if isinstance(data, str) else data
    if not os.path.exists(dst) or open(dst, "rb").read() != data:
        with open(dst, "wb") as f:
            f.write(data)


def main():
    ap = argparse.ArgumentParser()
    ap.add_argument("--top", required=True)
    ap.add_argument("--out", required=True)
    ap.add_argument("--version", required=True)
    a = ap.parse_args()
    top, out = a.top, a.out
    page = os.path.join(top, "web", "src")
    for folder, _, files in os.walk(page):
        for f in files:
            src = os.path.join(folder, f)
            if os.path.relpath(src, page) == "sw.js":
                continue
            copy_if_changed(src, os.path.join(out, os.path.relpath(src, page)))
    # A page file that was moved or deleted must not linger in the output, where
    # build.json below would list it and the service worker cache it. The top level
    # is shared with the compiled core, so only the page's own folders are swept.
    for name in os.listdir(page):
        if not os.path.isdir(os.path.join(page, name)):
            continue
        for folder, _, files in os.walk(os.path.join(out, name)):
            for f in files:
                stale = os.path.join(folder, f)
                if not os.path.exists(os.path.join(page, os.path.relpath(stale, out))):
                    os.remove(stale)
    images = os.path.join(top, "resources", "images")
    for f in sorted(os.listdir(images)):
        if f.endswith(".svg"):
            copy_if_changed(os.path.join(images, f), os.path.join(out, "art", f))
    sounds_dir = os.path.join(top, "resources", "sounds")
    sounds = sorted(f for f in os.listdir(sounds_dir) if f.endswith(".mp3"))
    for f in sounds:
        copy_if_changed(os.path.join(sounds_dir, f), os.path.join(out, "sounds", f))
    copy_if_changed(os.path.join(top, "resources", "layouts", "layouts.json"), os.path.join(out, "layouts.json"))
    copy_if_changed(os.path.join(top, "resources", "art", "geometry.json"), os.path.join(out, "geometry.json"))

    languages = []
    i18n = os.path.join(top, "resources", "i18n")
    for f in sorted(os.listdir(i18n)):
        if f.endswith(".ts"):
            lang = f[:-3].split("_", 1)[1]
            _, tables = ts_tables(os.path.join(i18n, f))
            write_if_changed(os.path.join(out, "strings", lang + ".json"),
                             json.dumps(tables, ensure_ascii=False, sort_keys=True, separators=(",", ":")))
            languages.append(lang)

    # The desktop's icon, drawn at the sizes home screens ask for.
    icon = os.path.join(top, "desktop", "org.morvanelabs.UkuleleTuner.svg")
    copy_if_changed(icon, os.path.join(out, "icons", "icon.svg"))
    for size in (180, 192, 512):
        dst = os.path.join(out, "icons", f"icon-{size}.png")
        if not os.path.exists(dst) or os.path.getmtime(dst) < os.path.getmtime(icon):
            subprocess.run(["rsvg-convert", "-w", str(size), "-h", str(size), "-o", dst, icon], check=True)
    manifest = {
        "name": APP_NAME, "short_name": "Tuner", "id": "./", "start_url": "./", "scope": "./",
        "display": "standalone", "orientation": "portrait", "background_color": "#1b2a38", "theme_color": "#1b2a38",
        "description": "Ukulele tuner and chord library",
        "icons": [
            {"src": "icons/icon-192.png", "sizes": "192x192", "type": "image/png"},
            {"src": "icons/icon-512.png", "sizes": "512x512", "type": "image/png"},
            {"src": "icons/icon.svg", "sizes": "any", "type": "image/svg+xml"},
        ],
    }
    write_if_changed(os.path.join(out, "manifest.webmanifest"), json.dumps(manifest, indent=1))

    # Everything the page may fetch, and a version that changes with any of it, so
    # that a new build replaces the cached copy as a whole.
    files, digest = [], hashlib.sha256()
    for folder, _, names in os.walk(out):
        for f in sorted(names):
            rel = os.path.relpath(os.path.join(folder, f), out).replace(os.sep, "/")
            if rel in ("build.json", "sw.js"):
                continue
            files.append(rel)
    files.sort()
    for rel in files:
        digest.update(rel.encode())
        digest.update(open(os.path.join(out, rel), "rb").read())
    build = {"version": a.version, "cache": a.version + "-" + digest.hexdigest()[:12],
             "languages": languages, "sounds": sounds, "files": ["./"] + files}
    write_if_changed(os.path.join(out, "build.json"), json.dumps(build, indent=1))
    worker = open(os.path.join(page, "sw.js"), encoding="utf-8").read()
    write_if_changed(os.path.join(out, "sw.js"), worker.replace("__CACHE__", build["cache"]))
    return 0


if __name__ == "__main__":
    sys.exit(main())
