// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/StringTargetTable.h"

namespace uke {

double StringTargetTable::ratio(Pitch p) {
    // Exact literals: several differ in the last digits from 2^(n/12) and the
    // windows depend on them as written.
    switch (p) {
    case Pitch::A4: return 1.0;
    case Pitch::E4: return 0.7491535384393847;
    case Pitch::C4: return 0.594603557502852;
    case Pitch::G4: return 0.8908987181408359;
    case Pitch::B3: return 0.5612310241562507;
    case Pitch::G3: return 0.4454493590719077;
    case Pitch::D3: return 0.3337099635442757;
    case Pitch::B4: return 1.1224620483087473;
    case Pitch::Fs4: return 0.8408964152544176;
    case Pitch::D4: return 0.6674199270863193;
    case Pitch::A3: return 0.5000000000016722;
    case Pitch::Gs4: return 0.9438743126819565;
    case Pitch::Ds4: return 0.70710678118773;
    case Pitch::As3: return 0.5297315471812717;
    case Pitch::F4: return 0.7937005259849845;
    case Pitch::As4: return 1.059463094359;
    case Pitch::Cs4: return 0.6299605249488411;
    }
    return 0.0;
}

void StringTargetTable::recompute(double a4Calibration) {
    for (size_t i = 0; i < kPitchCount; ++i) {
        const double hz = a4Calibration * ratio(static_cast<Pitch>(i));
        targets_[i] = StringTarget{hz, hz};
    }
}

std::string_view pitchName(Pitch p) {
    static constexpr std::string_view names[kPitchCount] = {
        "A4", "E4", "C4", "G4", "B3", "G3", "D3", "B4", "F#4", "D4", "A3", "G#4", "D#4", "A#3", "F4", "A#4", "C#4"};
    return names[static_cast<size_t>(p)];
}

std::string_view pitchFileStem(Pitch p) {
    static constexpr std::string_view names[kPitchCount] = {
        "A4", "E4", "C4", "G4", "B3", "G3", "D3", "B4", "FS4", "D4", "A3", "GS4", "DS4", "AS3", "F4", "AS4", "CS4"};
    return names[static_cast<size_t>(p)];
}

} // namespace uke
