// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "base/Pitch.h"

namespace uke {

// The six ways of writing note names, by language-picker row.
enum class NoteNamingSystem {
    DeviceLanguage = 0, // the string table's "ANoteM"... formats
    Letters = 1,
    Solfege = 2,
    SolfegeAccented = 3, // Ré instead of Re
    German = 4,          // H instead of B
    Cyrillic = 5,
};
inline constexpr long kNamingSystemCount = 6;

// What the naming override writes over the four strings of one tuning, string 1 first.
struct NamedStrings {
    std::array<const char*, 4> notes;        // note labels
    std::array<const char*, 4> chartFormats; // printf formats taking the frequency in hertz
    std::array<const char*, 4> buttons;      // reference-tone button titles
    // False where the chart labels are written whatever the chart switch says.
    bool honoursChartSwitch;
};

// The override's texts for picker rows 1..5 and tunings 1 and 2; nullptr elsewhere.
const NamedStrings* namedStrings(long row, int64_t tuning);

// The pitches whose reference frequencies fill the chart formats: tuning 1's own
// strings, and for tuning 2 the strings E4 B3 G3 D3 (tuning 5's), as the tuning-2
// texts name them. Only tunings 1 and 2 are defined.
const std::array<Pitch, 4>& namedPitches(int64_t tuning);

// Row 0's string-table keys ("ANoteM", ...) for tunings 1 and 2, string 1 first.
const std::array<const char*, 4>& deviceLanguageNoteKeys(int64_t tuning);

// Fills an Objective-C style format with one object argument: every "%@" becomes
// `argument` and "%%" a single "%"; anything else is copied as it is.
std::string fillObjectFormat(std::string_view format, std::string_view argument);

} // namespace uke
