// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/TuningCatalogue.h"

#include <stdexcept>

namespace uke {

namespace {

using P = Pitch;

const std::vector<Tuning>& rows() {
    static const std::vector<Tuning> table = {
        {1, "TuningFreeTitle1", {P::A4, P::E4, P::C4, P::G4}, "chord_icon.png", "chord_icon_large.png",
         {{P::A4, "A4", 1, 1}, {P::E4, "E4", 2, 2}, {P::C4, "C4", 3, 3}, {P::G4, "G4", 4, 4}}},
        // The low fourth string confirms through slot 3, as the app always has.
        {2, "TuningFreeTitle2", {P::A4, P::E4, P::C4, P::G3}, "chord_icon.png", "chord_icon_large.png",
         {{P::A4, "A4", 1, 1}, {P::E4, "E4", 2, 2}, {P::C4, "C4", 3, 3}, {P::G3, "G3", 4, 3}}},
        {3, "TuningFreeTitle3", {P::B4, P::Fs4, P::D4, P::A4}, "chord_icon.png", "chord_icon_large.png",
         {{P::B4, "B4", 1, 1}, {P::Fs4, "F#4", 2, 2}, {P::D4, "D4", 3, 3}, {P::A4, "A4", 4, 4}}},
        {4, "TuningFreeTitle4", {P::B4, P::Fs4, P::D4, P::A3}, "chord_icon.png", "chord_icon_large.png",
         {{P::B4, "B4", 1, 1}, {P::Fs4, "F#4", 2, 2}, {P::D4, "D4", 3, 3}, {P::A3, "A3", 4, 4}}},
        {5, "TuningFreeTitle5", {P::E4, P::B3, P::G3, P::D3}, "chord_icon_b.png", "chord_icon_b_large.png",
         {{P::E4, "E4", 1, 1}, {P::B3, "B3", 2, 2}, {P::G3, "G3", 3, 3}, {P::D3, "D3", 4, 4}}},
        {6, "TuningFreeTitle6", {P::Gs4, P::Ds4, P::B3, P::Fs4}, "chord_icon.png", "chord_icon_large.png",
         {{P::Gs4, "G#4", 1, 1}, {P::Ds4, "D#4", 2, 2}, {P::B3, "B3", 3, 3}, {P::Fs4, "F#4", 4, 4}}},
        {7, "TuningFreeTitle7", {P::G4, P::D4, P::As3, P::F4}, "chord_icon.png", "chord_icon_large.png",
         {{P::G4, "G4", 1, 1}, {P::D4, "D4", 2, 2}, {P::As3, "A#3", 3, 3}, {P::F4, "F4", 4, 4}}},
        // The fourth string's in-tune label is spelled "GS4" on purpose.
        {8, "TuningFreeTitle8", {P::As4, P::F4, P::Cs4, P::Gs4}, "chord_icon.png", "chord_icon_large.png",
         {{P::As4, "A#4", 1, 1}, {P::F4, "F4", 2, 2}, {P::Cs4, "C#4", 3, 3}, {P::Gs4, "GS4", 4, 4}}},
        // Same strings and rules as tuning 3; only the title differs.
        {9, "TuningFreeTitle9", {P::B4, P::Fs4, P::D4, P::A4}, "chord_icon.png", "chord_icon_large.png",
         {{P::B4, "B4", 1, 1}, {P::Fs4, "F#4", 2, 2}, {P::D4, "D4", 3, 3}, {P::A4, "A4", 4, 4}}},
        // Outer strings share a pitch: one rule lights both (code 14) and confirms slot 1 only.
        {10, "TuningFreeTitle10", {P::G4, P::E4, P::C4, P::G4}, "chord_sl_icon.png", "chord_sl_icon_large.png",
         {{P::G4, "G4", 14, 1}, {P::E4, "E4", 2, 2}, {P::C4, "C4", 3, 3}}},
        {11, "TuningFreeTitle11", {P::D3, P::B3, P::G3, P::D3}, "chord_icon_slb.png", "chord_icon_slb_large.png",
         {{P::D3, "D3", 14, 1}, {P::B3, "B3", 2, 2}, {P::G3, "G3", 3, 3}}},
    };
    return table;
}

} // namespace

const Tuning& TuningCatalogue::tuning(int64_t n) {
    if (!contains(n))
        throw std::out_of_range("tuning number out of range");
    return rows()[static_cast<size_t>(n - 1)];
}

} // namespace uke
