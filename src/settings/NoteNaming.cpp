// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/NoteNaming.h"

namespace uke {

namespace {

// Tuning 1, rows 1 to 5. Row 5 leaves the octave digit off the note labels only
// and writes its chart unit in Cyrillic; both are how the row has always read.
constexpr NamedStrings kTuning1[5] = {
    {{"A4", "E4", "C4", "G4"},
     {"A4 = %.1fHz", "E4 = %.1fHz", "C4 = %.1fHz", "G4 = %.1fHz"},
     {"A4", "E4", "C4", "G4"},
     true},
    {{"La4", "Mi4", "Do4", "Sol4"},
     {"La4 = %.1fHz", "Mi4 = %.1fHz", "Do4 = %.1fHz", "Sol4 = %.1fHz"},
     {"La4", "Mi4", "Do4", "Sol4"},
     false},
    {{"La4", "Mi4", "Do4", "Sol4"},
     {"La4 = %.1fHz", "Mi4 = %.1fHz", "Do4 = %.1fHz", "Sol4 = %.1fHz"},
     {"La4", "Mi4", "Do4", "Sol4"},
     false},
    {{"A4", "E4", "C4", "G4"},
     {"A4 = %.1fHz", "E4 = %.1fHz", "C4 = %.1fHz", "G4 = %.1fHz"},
     {"A4", "E4", "C4", "G4"},
     true},
    {{"Ля", "Ми", "До", "Соль"},
     {"Ля4 = %.1fГц", "Ми4 = %.1fГц", "До4 = %.1fГц", "Соль4 = %.1fГц"},
     {"Ля4", "Ми4", "До4", "Соль4"},
     false},
};

// Tuning 2, rows 1 to 5. These name the baritone strings E4 B3 G3 D3 rather than
// tuning 2's own; the mismatch is kept as the app has always shown it.
constexpr NamedStrings kTuning2[5] = {
    {{"E4", "B3", "G3", "D3"},
     {"E4 = %.1fHz", "B3 = %.1fHz", "G3 = %.1fHz", "D3 = %.1fHz"},
     {"E4", "B3", "G3", "D3"},
     true},
    {{"Mi4", "Si3", "Sol3", "Re3"},
     {"Mi4 = %.1fHz", "Si3 = %.1fHz", "Sol3 = %.1fHz", "Re3 = %.1fHz"},
     {"Mi4", "Si3", "Sol3", "Re3"},
     false},
    {{"Mi4", "Si3", "Sol3", "Ré3"},
     {"Mi4 = %.1fHz", "Si3 = %.1fHz", "Sol3 = %.1fHz", "Ré3 = %.1fHz"},
     {"Mi4", "Si3", "Sol3", "Ré3"},
     false},
    {{"E4", "H3", "G3", "D3"},
     {"E4 = %.1fHz", "H3 = %.1fHz", "G3 = %.1fHz", "D3 = %.1fHz"},
     {"E4", "H3", "G3", "D3"},
     true},
    {{"Ми", "Си", "Соль", "Ре"},
     {"Ми4 = %.1fHz", "Си3 = %.1fHz", "Соль3 = %.1fHz", "Ре3 = %.1fHz"},
     {"Ми4", "Си3", "Соль3", "Ре3"},
     false},
};

constexpr std::array<Pitch, 4> kTuning1Pitches = {Pitch::A4, Pitch::E4, Pitch::C4, Pitch::G4};
constexpr std::array<Pitch, 4> kTuning2Pitches = {Pitch::E4, Pitch::B3, Pitch::G3, Pitch::D3};

constexpr std::array<const char*, 4> kTuning1Keys = {"ANoteM", "ENoteM", "CNoteM", "GNoteM"};
constexpr std::array<const char*, 4> kTuning2Keys = {"ENoteM", "BNoteM", "GNoteM", "DNoteM"};

} // namespace

const NamedStrings* namedStrings(long row, int64_t tuning) {
    if (row < 1 || row > 5)
        return nullptr;
    if (tuning == 1)
        return &kTuning1[row - 1];
    if (tuning == 2)
        return &kTuning2[row - 1];
    return nullptr;
}

const std::array<Pitch, 4>& namedPitches(int64_t tuning) { return tuning == 2 ? kTuning2Pitches : kTuning1Pitches; }

const std::array<const char*, 4>& deviceLanguageNoteKeys(int64_t tuning) {
    return tuning == 2 ? kTuning2Keys : kTuning1Keys;
}

std::string fillObjectFormat(std::string_view format, std::string_view argument) {
    std::string out;
    out.reserve(format.size() + argument.size());
    for (size_t i = 0; i < format.size(); ++i) {
        if (format[i] == '%' && i + 1 < format.size() && format[i + 1] == '@') {
            out += argument;
            ++i;
        } else if (format[i] == '%' && i + 1 < format.size() && format[i + 1] == '%') {
            out += '%';
            ++i;
        } else {
            out += format[i];
        }
    }
    return out;
}

} // namespace uke
