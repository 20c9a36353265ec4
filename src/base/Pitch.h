// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <cstddef>
#include <string_view>

namespace uke {

// The seventeen distinct pitches any tuning uses.
enum class Pitch {
    A4, E4, C4, G4, B3, G3, D3, B4, Fs4, D4, A3, Gs4, Ds4, As3, F4, As4, Cs4
};
inline constexpr size_t kPitchCount = 17;

// "A4", "F#4", ... as the string labels write them.
std::string_view pitchName(Pitch p);
// "A4", "FS4", ... as the sound files are named (a sharp written as S).
std::string_view pitchFileStem(Pitch p);

} // namespace uke
