#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 Morvane Labs
# SPDX-License-Identifier: GPL-3.0-or-later
"""Turns the man pages' light Markdown into troff for man(7).

The source is what people edit and review; the build writes the page. It knows
what the pages use and no more: a title line (% NAME SECTION "DATE" "SOURCE"
"MANUAL"), # sections, paragraphs, definition lists (a term line, then lines
indented under ":   "), indented example blocks, **bold** and *italic*. A line
that is wholly an HTML comment (the copyright and licence tags) stays a comment
in the page.
@VERSION@ and @DATE@ are filled in from the arguments.

usage: md2man.py SOURCE.md OUTPUT VERSION DATE
"""
import re
import sys


def escape(text):
    text = text.replace("\\", "\\e").replace("-", "\\-")
    # troff reads bytes: anything beyond ASCII goes in as its code point.
    text = "".join(c if ord(c) < 128 else "\\[u%04X]" % ord(c) for c in text)
    # A line that starts with a dot or an apostrophe would be read as a request.
    return re.sub(r"^([.'])", r"\\&\1", text)


def inline(text):
    text = escape(text)
    text = re.sub(r"\*\*(.+?)\*\*", r"\\fB\1\\fR", text)
    return re.sub(r"\*(.+?)\*", r"\\fI\1\\fR", text)


def convert(lines):
    out = []
    i = 0
    while i < len(lines):
        line = lines[i]
        comment = re.fullmatch(r"<!--\s*(.*?)\s*-->", line)
        if comment:
            out.append('.\\" ' + comment.group(1))
        elif line.startswith("% "):
            # Options and file names are not hyphenated, and lines are not stretched.
            out.append(".TH " + line[2:] + "\n.nh\n.ad l")
        elif line.startswith("# "):
            out.append(".SH " + escape(line[2:].upper()))
        elif line.startswith("    "):
            out.append(".PP\n.RS 4\n.nf")
            while i < len(lines) and lines[i].startswith("    "):
                out.append(escape(lines[i][4:]))
                i += 1
            out.append(".fi\n.RE")
            continue
        elif line.strip() and i + 1 < len(lines) and lines[i + 1].startswith(":   "):
            out.append(".TP\n" + inline(line))
            i += 1
            while i < len(lines) and (lines[i].startswith(":   ") or lines[i].startswith("    ")):
                out.append(inline(lines[i][4:]))
                i += 1
            continue
        elif line.strip():
            if out and not out[-1].startswith(".SH") and (i == 0 or not lines[i - 1].strip()):
                out.append(".PP")
            out.append(inline(line))
        i += 1
    return "\n".join(out) + "\n"


def main():
    if len(sys.argv) != 5:
        sys.exit(__doc__.strip().splitlines()[-1])
    source, output, version, date = sys.argv[1:]
    with open(source, encoding="utf-8") as f:
        text = f.read().replace("@VERSION@", version).replace("@DATE@", date)
    with open(output, "w", encoding="utf-8") as f:
        f.write(convert(text.splitlines()))


if __name__ == "__main__":
    main()
