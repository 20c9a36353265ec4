// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#include "sounds/ToneGenerator.h"

#include <cmath>

namespace uke {

namespace {
constexpr double kTwoPi = 6.283185307179586;
constexpr double kPi = 3.141592653589793;
} // namespace

void ToneGenerator::render(int16_t* interleaved, uint32_t frames, const std::atomic<int64_t>& curTone) {
    for (uint32_t frame = 0; frame < frames; ++frame) {
        // Divided in single precision, as the tone always has been: the pitch stays
        // within a few parts in 10^8 of the double quotient, far below hearing.
        increment_ = static_cast<double>(toneFrequency.load(std::memory_order_relaxed) / 44100.0f);
        const double s = std::sin(phase_);

        double w = s;
        switch (curTone.load(std::memory_order_relaxed)) {
        case 3: w = square_; break;
        case 2: w = sawtooth_; break;
        case 1: w = triangle_; break;
        default: break;
        }

        // The scale is 6 x 0.95 / 2pi of full range: a peak of about 29725.67.
        const double value =
            (s + (w - s) * static_cast<double>(mixPercentage_) / 100.0) / kTwoPi * 32767.0 * 6.0 * 0.95;
        const auto sample = static_cast<int16_t>(static_cast<uint16_t>(static_cast<int32_t>(value)));
        interleaved[2 * frame] = sample;
        interleaved[2 * frame + 1] = sample;

        phase_ += increment_ * kTwoPi;
        if (phase_ > kTwoPi)
            phase_ -= kTwoPi;

        triangle_ = static_cast<double>(direction_ * 4.0f) * increment_ + triangle_;
        if (std::fabs(triangle_) > 1.0) {
            triangle_ = (2.0 - std::fabs(triangle_)) * static_cast<double>(direction_);
            direction_ = -direction_;
        }

        sawtooth_ = increment_ * 2.0 + sawtooth_;
        if (sawtooth_ > 1.0)
            sawtooth_ -= 2.0;

        square_ = phase_ <= kPi ? 1.0 : -1.0;
    }
}

} // namespace uke
