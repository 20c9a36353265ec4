// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#include "chords/ChordScreenModel.h"

#include <array>

namespace uke {

namespace {
using Outlet = ImageView ChordScreenModel::*;

constexpr std::array<Outlet, 4> kStatus = {&ChordScreenModel::string1Status, &ChordScreenModel::string2Status,
                                           &ChordScreenModel::string3Status, &ChordScreenModel::string4Status};

constexpr std::array<std::array<Outlet, 4>, 4> kCells = {{
    {&ChordScreenModel::Str1Fr1, &ChordScreenModel::Str1Fr2, &ChordScreenModel::Str1Fr3, &ChordScreenModel::Str1Fr4},
    {&ChordScreenModel::Str2Fr1, &ChordScreenModel::Str2Fr2, &ChordScreenModel::Str2Fr3, &ChordScreenModel::Str2Fr4},
    {&ChordScreenModel::Str3Fr1, &ChordScreenModel::Str3Fr2, &ChordScreenModel::Str3Fr3, &ChordScreenModel::Str3Fr4},
    {&ChordScreenModel::Str4Fr1, &ChordScreenModel::Str4Fr2, &ChordScreenModel::Str4Fr3, &ChordScreenModel::Str4Fr4},
}};

size_t slot(int n) { return static_cast<size_t>(n < 1 ? 0 : n > 4 ? 3 : n - 1); }
} // namespace

ChordScreenModel::ChordScreenModel() {
    ukuleleFretboard.image = "fretboard.png";
    buttonFlatOrSharp.image = "flat.png";
    chordDisplay.text = "-";
}

ImageView& ChordScreenModel::stringStatus(int s) { return this->*kStatus[slot(s)]; }
ImageView& ChordScreenModel::cell(int s, int r) { return this->*kCells[slot(s)][slot(r)]; }
const ImageView& ChordScreenModel::stringStatus(int s) const { return this->*kStatus[slot(s)]; }
const ImageView& ChordScreenModel::cell(int s, int r) const { return this->*kCells[slot(s)][slot(r)]; }

} // namespace uke
