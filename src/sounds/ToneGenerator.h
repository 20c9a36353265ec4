#pragma once
#include <atomic>
#include <cstdint>

namespace uke {

// The process-wide synthesis state of the reference tone and its render step.
// The tone frequency is written on the main thread and read by the audio thread;
// the waveform state belongs to the audio thread alone.
class ToneGenerator {
public:
    std::atomic<float> toneFrequency{440.0f};  // hertz

    // Fills `frames` interleaved stereo frames. `curTone` selects the second
    // waveform: 1 triangle, 2 sawtooth, 3 square, anything else plain sine.
    void render(int16_t* interleaved, uint32_t frames, const std::atomic<int64_t>& curTone);
};

} // namespace uke
