// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace uke {

// What the tuner reads from the microphone listener at every tick. MicListener is
// the real one; tests drive the tick with a scripted source.
class PitchSource {
public:
    virtual ~PitchSource() = default;
    virtual void listen() = 0;
    // Linear level of the latest audio, 0.0 (silence) to 1.0; 0.0 when not listening.
    virtual float averagePower() = 0;
    // Fundamental-frequency estimate in hertz; 0.0 before any audio.
    virtual float frequency() = 0;
    // Whether anything can be heard at all: false once no input could be opened.
    virtual bool hearing() const { return true; }
};

// A microphone in a silent room: for screens that need no audio (the tool's
// scripted screen, the chord library's tests and benchmarks).
class SilentPitchSource : public PitchSource {
public:
    void listen() override {}
    float averagePower() override { return 0.0f; }
    float frequency() override { return 0.0f; }
};

} // namespace uke
