// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
// `uke chords`: a whole chord chart, roots down and chord types across.
#include <algorithm>

#include "Args.h"
#include "ChordDiagram.h"
#include "Commands.h"
#include "chords/ChordShapeTable.h"

namespace uke::tool {

namespace {

// Display width of UTF-8 text, counting code points ("B♭" is two columns).
size_t columns(const std::string& s) {
    return static_cast<size_t>(std::count_if(s.begin(), s.end(), [](char c) { return (c & 0xC0) != 0x80; }));
}

std::string padded(const std::string& s, size_t width) {
    return s + std::string(width - std::min(width, columns(s)), ' ');
}

} // namespace

int cmdChords(const Words& words, std::ostream& out, std::ostream& err) {
    Args args({"chart", "format"}, {"flats"});
    long chart = 0;
    std::string fmt = "text";
    if (!args.parse(words) || !args.integer("chart", 1, 4, chart) ||
        !args.choice("format", {"text", "notation"}, fmt) || !args.positionalAtMost(0)) {
        err << "uke chords: " << args.error() << "\n";
        return 2;
    }
    if (!args.has("chart")) {
        err << "uke chords: --chart is required (1 standard, 2 baritone, 3 open G C E G, 4 open D G B D)\n";
        return 2;
    }
    const Spelling spelling = args.has("flats") ? Spelling::Flats : Spelling::Sharps;
    const auto variants = ChordCatalogue::variantKeys(chart);

    std::vector<std::vector<std::string>> table; // first row: header; first column: root
    table.push_back({"root"});
    for (std::string_view v : variants)
        table.front().emplace_back(v);
    for (std::string_view root : ChordCatalogue::rootKeys) {
        std::vector<std::string> row{fmt == "notation" ? std::string(root)
                                                       : ChordCatalogue::spelledRoot(root, spelling)};
        for (std::string_view v : variants) {
            const ChordShape* shape = ChordShapeTable::find(chart, root, v);
            row.push_back(shape ? shapeNotation(*shape) : "?");
        }
        table.push_back(std::move(row));
    }

    if (fmt == "notation") {
        // The authored charts' own layout: one pipe-separated line per root.
        for (const auto& row : table) {
            out << "|";
            for (const auto& cell : row)
                out << " " << cell << " |";
            out << "\n";
        }
        return 0;
    }

    std::vector<size_t> width(table.front().size(), 0);
    for (const auto& row : table)
        for (size_t c = 0; c < row.size(); ++c)
            width[c] = std::max(width[c], columns(row[c]));
    auto rule = [&](const char* l, const char* m, const char* r) {
        out << l;
        for (size_t c = 0; c < width.size(); ++c) {
            for (size_t i = 0; i < width[c] + 2; ++i)
                out << "─";
            out << (c + 1 < width.size() ? m : r);
        }
        out << "\n";
    };
    out << ChordCatalogue::openStrings(chart)[0] << " " << ChordCatalogue::openStrings(chart)[1] << " "
        << ChordCatalogue::openStrings(chart)[2] << " " << ChordCatalogue::openStrings(chart)[3] << " (chart " << chart
        << ", strings 4 to 1; o open, x muted, 1-4 dot in that row)\n";
    rule("┌", "┬", "┐");
    for (size_t r = 0; r < table.size(); ++r) {
        out << "│";
        for (size_t c = 0; c < table[r].size(); ++c)
            out << " " << padded(table[r][c], width[c]) << " │";
        out << "\n";
        if (r == 0)
            rule("├", "┼", "┤");
    }
    rule("└", "┴", "┘");
    return 0;
}

} // namespace uke::tool
