// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <atomic>
#include <cstdint>

namespace uke {

// The process-wide synthesis state of the reference tone and its render step:
// a sine mixed half and half with a second waveform of the same pitch.
//
// The tone frequency is written on the main thread and read by the audio thread;
// the waveform state belongs to the audio thread alone. Nothing is ever reset, so a
// new tone (or a new pitch) resumes from the phase where the last one stopped.
class ToneGenerator {
public:
    static constexpr double kSampleRate = 44100.0; // frames per second

    std::atomic<float> toneFrequency{440.0f}; // hertz

    // Fills `frames` interleaved stereo frames, the same sample on both channels.
    // `curTone` selects the second waveform: 1 triangle, 2 sawtooth, 3 square,
    // anything else plain sine. It is read once per frame, so a change takes effect
    // at the next frame.
    void render(int16_t* interleaved, uint32_t frames, const std::atomic<int64_t>& curTone);

    // Read-outs of the waveform state, for tests and tools.
    double phase() const { return phase_; }
    double triangleValue() const { return triangle_; }
    double sawtoothValue() const { return sawtooth_; }
    double squareValue() const { return square_; }
    float triangleDirection() const { return direction_; }

private:
    float mixPercentage_ = 50.0f; // weight of the second waveform; never changed
    float direction_ = 1.0f;      // of the triangle: +1 rising, -1 falling
    double phase_ = 0.0;          // radians, in (0, 2pi] after the first wrap
    double increment_ = 0.0;      // cycles per sample
    double triangle_ = 0.0;       // in [-1, 1]
    double sawtooth_ = 0.0;       // in (-1, 1]
    double square_ = 0.0;         // +1 or -1 once running
};

static_assert(std::atomic<float>::is_always_lock_free && std::atomic<int64_t>::is_always_lock_free,
              "the render path must not take a lock");

} // namespace uke
