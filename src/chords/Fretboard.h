// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <cstdint>
#include <optional>
#include <string>

#include "chords/ChordScreenModel.h"
#include "chords/ChordShape.h"
#include "platform/DeviceInfo.h"

namespace uke {

// The chord screen's fretboard: a neck picture with status marks, finger dots, a
// fret number and the chord name laid over it.
class Fretboard {
public:
    // The neck picture chart `chart` asks for on a device of this idiom and exact
    // screen height, or nothing to keep the layout's own (standard) picture. Only
    // the heights of the original phone families have pictures of their own; any
    // other phone height (844, 926, ...) deliberately keeps the standard one.
    static std::optional<std::string> pictureFor(int64_t chart, Idiom idiom, double screenHeight);

    // Name of the number image for fret label n ("2.png" .. "9.png"); empty otherwise.
    static std::string numberImage(int n);

    // Empties the board: the name reads "-", every mark and number view shows
    // nothing. The neck picture stays.
    static void clear(ChordScreenModel& screen);

    // Lays `shape` over a cleared board and shows `name`.
    static void draw(ChordScreenModel& screen, const ChordShape& shape, const std::string& name);
};

} // namespace uke
