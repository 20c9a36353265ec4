// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <cstdint>
#include <functional>
#include <string>

namespace uke {

// A recording queue: the owner allocates buffers, enqueues them, and gets each one
// back, filled, on the capture thread. A buffer that is not enqueued again leaves
// circulation; when none is enqueued, incoming audio is dropped.
class AudioCapture {
public:
    struct Format {
        double sampleRate = 0.0;   // hertz
        uint32_t channels = 0;
        uint32_t bitsPerChannel = 0;
    };
    // Called on the capture thread with a filled buffer.
    using Callback = std::function<void(int bufferId, const int16_t* samples, uint32_t byteSize)>;

    virtual ~AudioCapture() = default;

    // Creates the queue for the default input. False, with lastError(), when there is
    // no usable input device.
    virtual bool newInput(const Format& format, Callback callback) = 0;
    virtual int allocateBuffer(uint32_t byteSize) = 0;
    virtual void enqueueBuffer(int bufferId) = 0;
    virtual void start() = 0;
    // Stops at once; the queue and its buffers are kept.
    virtual void stop() = 0;
    // Stops and forgets the queue and its buffers.
    virtual void dispose() = 0;
    virtual bool isRunning() const = 0;
    virtual std::string lastError() const { return {}; }
};

} // namespace uke
