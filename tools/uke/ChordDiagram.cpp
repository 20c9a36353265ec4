// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#include "ChordDiagram.h"

#include <cstdio>

#include "Args.h"
#include "base/OutletJson.h"

namespace uke::tool {

std::optional<std::string_view> parseRoot(std::string_view text) {
    if (ChordCatalogue::rootIndex(text) >= 0)
        return ChordCatalogue::rootKeys[static_cast<size_t>(ChordCatalogue::rootIndex(text))];
    if (text.empty())
        return std::nullopt;
    char letter = text[0];
    if (letter >= 'a' && letter <= 'g')
        letter = static_cast<char>(letter - 'a' + 'A');
    const std::string_view accidental = text.substr(1);
    std::string wanted(1, letter);
    Spelling spelling = Spelling::Sharps;
    if (accidental == "#") {
        wanted += "#";
    } else if (accidental == "b" || accidental == "♭") {
        wanted += "♭";
        spelling = Spelling::Flats;
    } else if (!accidental.empty()) {
        return std::nullopt;
    }
    for (std::string_view key : ChordCatalogue::rootKeys)
        if (ChordCatalogue::spelledRoot(key, spelling) == wanted)
            return key;
    return std::nullopt;
}

std::optional<std::string_view> parseVariant(std::string_view text) {
    if (text == "major")
        return ChordCatalogue::fullVariantKeys[0];
    for (std::string_view key : ChordCatalogue::fullVariantKeys)
        if (key == text)
            return key;
    return std::nullopt;
}

namespace {

std::string labelText(const ChordShape& shape, FretLabelPosition where) {
    if (!shape.label || shape.label->position != where)
        return {};
    return std::to_string(shape.label->number);
}

} // namespace

std::string textDiagram(const ChordShape& shape, int64_t chart) {
    // Columns: a three-character left margin for an L2 label, then strings 4..1
    // four characters apart.
    std::string out = "   ";
    const auto names = ChordCatalogue::openStrings(chart);
    for (size_t i = 0; i < names.size(); ++i)
        out += std::string(names[i]) + (i + 1 < names.size() ? "   " : "");
    std::string status = "   ";
    for (int s = 4; s >= 1; --s) {
        const StringMarks& m = shape.onString(s);
        status += m.muted ? "×" : m.open ? "○" : " ";
        if (s > 1)
            status += "   ";
    }
    out += "\n" + status.erase(status.find_last_not_of(' ') + 1) + "\n";
    // Up the neck the top line is an ordinary fret, not the nut.
    out += shape.label ? "   ┌───┬───┬───┐\n" : "   ╒═══╤═══╤═══╕\n";
    for (int r = 1; r <= 4; ++r) {
        std::string left = r == 2 ? labelText(shape, FretLabelPosition::L2) : "";
        std::string right = r == 1   ? labelText(shape, FretLabelPosition::R1)
                            : r == 2 ? labelText(shape, FretLabelPosition::R2)
                                     : "";
        out += left.empty() ? "   " : left + "  ";
        for (int s = 4; s >= 1; --s) {
            out += shape.onString(s).hasDot(r) ? "●" : "│";
            if (s > 1)
                out += "   ";
        }
        if (!right.empty())
            out += "  " + right;
        out += "\n";
        out += r < 4 ? "   ├───┼───┼───┤\n" : "   └───┴───┴───┘\n";
    }
    return out;
}

std::string svgDiagram(const ChordShape& shape, int64_t chart, const std::string& name) {
    // 200 x 300 units: title, string names, status marks, then the grid.
    constexpr double left = 40, gap = 40, top = 110, row = 40;
    auto x = [&](int s) { return left + (4 - s) * gap; };
    std::string out;
    char buf[320];
    auto add = [&](const char* fmt, auto... args) {
        std::snprintf(buf, sizeof buf, fmt, args...);
        out += buf;
    };
    out += "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"200\" height=\"300\" viewBox=\"0 0 200 300\">\n";
    out += "<rect width=\"200\" height=\"300\" rx=\"14\" fill=\"#17151c\"/>\n";
    std::string escaped;
    for (char c : name)
        escaped += c == '<' ? "&lt;" : c == '>' ? "&gt;" : c == '&' ? "&amp;" : std::string(1, c);
    add("<text x=\"100\" y=\"38\" text-anchor=\"middle\" font-family=\"DejaVu Sans, sans-serif\" font-size=\"26\" "
        "font-weight=\"bold\" fill=\"#f3ede4\">%s</text>\n",
        escaped.c_str());
    const auto names = ChordCatalogue::openStrings(chart);
    for (int s = 4; s >= 1 && names.size() == 4; --s)
        add("<text x=\"%g\" y=\"64\" text-anchor=\"middle\" font-family=\"DejaVu Sans, sans-serif\" font-size=\"13\" "
            "fill=\"#a79fb2\">%s</text>\n",
            x(s), std::string(names[static_cast<size_t>(4 - s)]).c_str());
    for (int s = 1; s <= 4; ++s) {
        const StringMarks& m = shape.onString(s);
        if (m.open)
            add("<circle cx=\"%g\" cy=\"88\" r=\"8\" fill=\"none\" stroke=\"#5fd37a\" stroke-width=\"3\"/>\n", x(s));
        if (m.muted)
            add("<path d=\"M%g 80 l16 16 M%g 80 l-16 16\" stroke=\"#e0675a\" stroke-width=\"3\" "
                "stroke-linecap=\"round\"/>\n",
                x(s) - 8, x(s) + 8);
    }
    for (int r = 0; r <= 4; ++r) {
        const bool nut = r == 0 && !shape.label;
        add("<line x1=\"%g\" y1=\"%g\" x2=\"%g\" y2=\"%g\" stroke=\"%s\" stroke-width=\"%d\" "
            "stroke-linecap=\"round\"/>\n",
            left, top + r * row, left + 3 * gap, top + r * row, nut ? "#f3ede4" : "#6d6477", nut ? 6 : 2);
    }
    for (int s = 1; s <= 4; ++s)
        add("<line x1=\"%g\" y1=\"%g\" x2=\"%g\" y2=\"%g\" stroke=\"#d9c7a6\" stroke-width=\"2\"/>\n", x(s), top, x(s),
            top + 4 * row);
    for (int s = 1; s <= 4; ++s)
        for (int r = 1; r <= 4; ++r)
            if (shape.onString(s).hasDot(r))
                add("<circle cx=\"%g\" cy=\"%g\" r=\"13\" fill=\"#f2b33d\"/>\n", x(s), top + (r - 0.5) * row);
    if (shape.label) {
        const bool onLeft = shape.label->position == FretLabelPosition::L2;
        const int labelRow = shape.label->position == FretLabelPosition::R1 ? 1 : 2;
        add("<text x=\"%g\" y=\"%g\" text-anchor=\"middle\" font-family=\"DejaVu Sans, sans-serif\" font-size=\"18\" "
            "font-weight=\"bold\" fill=\"#f3ede4\">%d</text>\n",
            onLeft ? left - 22 : left + 3 * gap + 22, top + (labelRow - 0.5) * row + 6, shape.label->number);
    }
    out += "</svg>\n";
    return out;
}

std::string jsonShape(const ChordShape& shape, int64_t chart, std::string_view root, std::string_view variant,
                      const std::string& name) {
    std::string out = "{\"chart\": " + std::to_string(chart) + ", \"root\": " + jsonQuoted(std::string(root)) +
                      ", \"type\": " + jsonQuoted(std::string(variant)) + ", \"name\": " + jsonQuoted(name) +
                      ", \"notation\": " + jsonQuoted(shapeNotation(shape)) + ", \"strings\": [";
    for (int s = 1; s <= 4; ++s) {
        const StringMarks& m = shape.onString(s);
        out += std::string(s > 1 ? ", " : "") + "{\"string\": " + std::to_string(s) +
               ", \"open\": " + (m.open ? "true" : "false") + ", \"muted\": " + (m.muted ? "true" : "false") +
               ", \"rows\": [";
        bool first = true;
        for (int r = 1; r <= 4; ++r)
            if (m.hasDot(r)) {
                out += (first ? "" : ", ") + std::to_string(r);
                first = false;
            }
        out += "], \"frets\": [";
        first = true;
        for (int r = 1; r <= 4; ++r)
            if (m.hasDot(r)) {
                out += (first ? "" : ", ") + std::to_string(shape.fretOfRow(r));
                first = false;
            }
        out += "]}";
    }
    out += "], \"label\": ";
    if (shape.label)
        out += "{\"position\": " + jsonQuoted(std::string(fretLabelPositionName(shape.label->position))) +
               ", \"number\": " + std::to_string(shape.label->number) + "}";
    else
        out += "null";
    return out + "}";
}

} // namespace uke::tool
