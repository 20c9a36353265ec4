// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// A plucked string for tests and benchmarks: the first six harmonics at amplitudes
// 1/n, each decaying faster than the one below it, like a nylon string.
#include <cmath>
#include <cstdint>
#include <numbers>
#include <vector>

namespace uke::test {

inline std::vector<int16_t> syntheticPluck(double hertz, double rate, size_t count, double peak = 12000.0) {
    std::vector<int16_t> out(count);
    for (size_t i = 0; i < count; ++i) {
        const double t = static_cast<double>(i) / rate;
        double v = 0.0;
        for (int n = 1; n <= 6; ++n)
            v += std::sin(2.0 * std::numbers::pi * hertz * n * t + 0.3 * n) * std::exp(-t * (1.5 + 0.8 * n)) / n;
        out[i] = static_cast<int16_t>(std::lround(peak * 0.55 * v));
    }
    return out;
}

} // namespace uke::test
