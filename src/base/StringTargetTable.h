// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <array>

#include "base/Pitch.h"

namespace uke {

struct StringTarget {
    double target = 0.0; // hertz
    double basis = 0.0;  // tolerance basis, hertz: the window is target +/- basis/360

    // The in-tune window, edges included, in hertz.
    double low() const { return target - basis / 360.0; }
    double high() const { return target + basis / 360.0; }
    bool contains(double hz) const { return low() <= hz && high() >= hz; }
};

// The seventeen calibrated reference pitches. All zero until the first recompute,
// so that every window then matches only a frequency of exactly 0.
class StringTargetTable {
public:
    void recompute(double a4Calibration);
    const StringTarget& operator[](Pitch p) const { return targets_[static_cast<size_t>(p)]; }
    // The exact ratio literal of a pitch to A4.
    static double ratio(Pitch p);

private:
    std::array<StringTarget, kPitchCount> targets_{};
};

} // namespace uke
