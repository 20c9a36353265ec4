// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace uke {

struct SensitivityLimits {
    double bottomLimit;  // below it no string is shown
    double topLimit;     // above it the frequency is shown
};

// Level thresholds by sensitivity step: a higher step accepts quieter input.
// Steps 5 to 10 are the same on purpose.
class SensitivityLimitTable {
public:
    // `step` must be 0..10.
    static SensitivityLimits forStep(long step) {
        static constexpr SensitivityLimits rows[11] = {
            {0.007, 0.0095}, {0.006, 0.0085}, {0.005, 0.0075}, {0.004, 0.0065}, {0.003, 0.0055}, {0.002, 0.0045},
            {0.002, 0.0045}, {0.002, 0.0045}, {0.002, 0.0045}, {0.002, 0.0045}, {0.002, 0.0045}};
        return rows[step];
    }
};

} // namespace uke
