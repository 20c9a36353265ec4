// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
// `uke chord`: one authored chord shape, as the chord screen would show it.
#include "Args.h"
#include "ChordDiagram.h"
#include "Commands.h"
#include "chords/ChordShapeTable.h"

namespace uke::tool {

int cmdChord(const Words& words, std::ostream& out, std::ostream& err) {
    Args args({"chart", "root", "type", "format"}, {"flats"});
    long chart = 0;
    std::string fmt = "text";
    if (!args.parse(words) || !args.integer("chart", 1, 4, chart) ||
        !args.choice("format", {"text", "json", "notation", "svg"}, fmt) || !args.positionalAtMost(0)) {
        err << "uke chord: " << args.error() << "\n";
        return 2;
    }
    for (const char* required : {"chart", "root", "type"})
        if (!args.has(required)) {
            err << "uke chord: --" << required << " is required (uke chord --chart 1..4 --root R --type T)\n";
            return 2;
        }
    const auto root = parseRoot(*args.value("root"));
    if (!root) {
        err << "uke chord: unknown root '" << *args.value("root") << "' (A, A#, Bb, B♭, A#/B♭, ... G#/A♭)\n";
        return 2;
    }
    const auto variant = parseVariant(*args.value("type"));
    if (!variant) {
        err << "uke chord: unknown chord type '" << *args.value("type")
            << "' (major or -, m, aug, dim, 7, m7, maj7, 6, m6, add9, m9, 9, sus2, sus4, 7sus4)\n";
        return 2;
    }
    const Spelling spelling = args.has("flats") ? Spelling::Flats : Spelling::Sharps;
    const std::string name = ChordCatalogue::chordName(*root, *variant, spelling);
    const ChordShape* shape = ChordShapeTable::find(chart, *root, *variant);
    if (!shape) {
        err << "uke chord: no shape for " << name << " on chart " << chart << "\n";
        return 1;
    }
    if (fmt == "notation")
        out << shapeNotation(*shape) << "\n";
    else if (fmt == "json")
        out << jsonShape(*shape, chart, *root, *variant, name) << "\n";
    else if (fmt == "svg")
        out << svgDiagram(*shape, chart, name);
    else
        out << name << "\n" << textDiagram(*shape, chart);
    return 0;
}

} // namespace uke::tool
