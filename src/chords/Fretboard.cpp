// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#include "chords/Fretboard.h"

#include "base/LayoutClass.h"
#include "chords/ChordCatalogue.h"

namespace uke {

std::optional<std::string> Fretboard::pictureFor(int64_t chart, Idiom idiom, double screenHeight) {
    const std::string family(ChordCatalogue::fretboardFamily(chart));
    if (family.empty())
        return std::nullopt;
    if (const auto suffix = fretboardSuffixFor(idiom, screenHeight))
        return family + std::string(*suffix);
    return std::nullopt;
}

std::string Fretboard::numberImage(int n) {
    if (n < 2 || n > 9)
        return {};
    return std::to_string(n) + ".png";
}

void Fretboard::clear(ChordScreenModel& screen) {
    screen.chordDisplay.text = "-";
    screen.rightNumberFr1.image.clear();
    screen.rightNumberFr2.image.clear();
    screen.leftNumberFr2.image.clear();
    for (int s = 1; s <= 4; ++s)
        screen.stringStatus(s).image.clear();
    for (int s = 1; s <= 4; ++s)
        for (int r = 1; r <= 4; ++r)
            screen.cell(s, r).image.clear();
}

void Fretboard::draw(ChordScreenModel& screen, const ChordShape& shape, const std::string& name) {
    for (int s = 1; s <= 4; ++s) {
        const StringMarks& marks = shape.onString(s);
        // An authored string never carries both; were it to, the muted mark is drawn
        // last and shows, as a second image set on one view would.
        if (marks.open)
            screen.stringStatus(s).image = "circle.png";
        if (marks.muted)
            screen.stringStatus(s).image = "x.png";
        for (int r = 1; r <= 4; ++r)
            if (marks.hasDot(r))
                screen.cell(s, r).image = "dot.png";
    }
    if (shape.label) {
        const std::string number = numberImage(shape.label->number);
        switch (shape.label->position) {
        case FretLabelPosition::R1: screen.rightNumberFr1.image = number; break;
        case FretLabelPosition::R2: screen.rightNumberFr2.image = number; break;
        case FretLabelPosition::L2: screen.leftNumberFr2.image = number; break;
        }
    }
    screen.chordDisplay.text = name;
}

} // namespace uke
