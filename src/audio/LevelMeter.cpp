// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#include "audio/LevelMeter.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace uke {

void LevelMeter::reset(uint32_t channels) {
    states_.assign(channels, LevelMeterState{});
    clearReading();
}

void LevelMeter::clearReading() {
    average_.store(0.0f, std::memory_order_relaxed);
    peak_.store(0.0f, std::memory_order_relaxed);
}

void LevelMeter::measure(const int16_t* samples, uint32_t count) {
    double sumSquares = 0.0;
    int peak = 0;
    for (uint32_t i = 0; i < count; ++i) {
        const int s = samples[i];
        sumSquares += static_cast<double>(s) * s;
        peak = std::max(peak, std::abs(s));
    }
    const double rms = count ? std::sqrt(sumSquares / count) : 0.0;
    average_.store(static_cast<float>(rms / 32768.0), std::memory_order_relaxed);
    peak_.store(static_cast<float>(peak / 32768.0), std::memory_order_relaxed);
}

void LevelMeter::update() {
    if (states_.empty())
        return;
    states_[0].mAveragePower = average_.load(std::memory_order_relaxed);
    states_[0].mPeakPower = peak_.load(std::memory_order_relaxed);
}

} // namespace uke
