// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <cstdint>
#include <functional>

namespace uke {

// A pulled output stream: 44100 Hz, signed 16-bit, two interleaved channels.
class AudioOutput {
public:
    // Fills `frames` frames (2 x frames samples) on the audio thread.
    using RenderCallback = std::function<void(int16_t* interleaved, uint32_t frames)>;

    virtual ~AudioOutput() = default;
    // Makes a new output stream for `render`; an earlier stream is stopped and
    // let go first, so that only one stream ever pulls the render step.
    virtual void setup(RenderCallback render) = 0;
    virtual void start() = 0;
    virtual void stop() = 0;
};

} // namespace uke
