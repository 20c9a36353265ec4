// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <atomic>
#include <cstdint>
#include <vector>

namespace uke {

// One channel of the capture level meter: linear amplitudes, 0.0 (silence) to
// 1.0 (full scale).
struct LevelMeterState {
    float mAveragePower = 0.0f;
    float mPeakPower = 0.0f;
};

// RMS and peak of the latest captured block. The capture thread measures into
// atomics; the reader copies them into the channel states when it asks.
class LevelMeter {
public:
    // Switches the meter on for `channels` channels, every reading 0.
    void reset(uint32_t channels);
    // Forgets the latest reading (0 until the next block); the states stay as they are.
    void clearReading();
    // Capture thread: meters `count` samples.
    void measure(const int16_t* samples, uint32_t count);
    // Copies the latest reading into the first channel's state; nothing before reset().
    void update();
    // The channel states; empty before reset().
    const LevelMeterState* states() const { return states_.data(); }

private:
    std::vector<LevelMeterState> states_;
    std::atomic<float> average_{0.0f};
    std::atomic<float> peak_{0.0f};
};

} // namespace uke
