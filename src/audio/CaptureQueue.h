// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <atomic>
#include <cstdint>
#include <functional>
#include <memory>

#include "base/Format.h"
#include "platform/AudioCapture.h"
#include "platform/Log.h"

namespace uke {

// The microphone's recording queue over one AudioCapture port: no queue, running,
// or paused (queue kept, capture stopped). A queue is made with kBufferCount
// buffers of kBufferBytes each that circulate between the port and this object.
//
// The port and the log given at making are never changed: a new port means a new
// CaptureQueue. The capture thread only reads that fixed state and the atomic flag,
// so it never races with whoever replaces the queue.
class CaptureQueue : public std::enable_shared_from_this<CaptureQueue> {
public:
    static constexpr double kSampleRate = 14039.0; // hertz, mono, 16-bit
    static constexpr uint32_t kBufferBytes = 8192; // bytes per buffer: 4096 samples, about 0.29 s
    static constexpr int kBufferCount = 3;

    // Called on the capture thread with each filled buffer that arrives while
    // listening; `byteSize` is what the port filled, in bytes.
    using Delivery = std::function<void(const int16_t* samples, uint32_t byteSize)>;

    // `capture` may be null (none configured: opening logs why and fails). The port
    // and the log must outlive the queue's use; the port's callback keeps the queue
    // itself alive.
    static std::shared_ptr<CaptureQueue> make(AudioCapture* capture, Log& log);

    // Makes the queue (format, input, buffers) unless there is one; true when made
    // now. A failure is logged and leaves no queue.
    bool open(Delivery delivery);
    // Starts capture when there is a queue.
    void start();
    // Stops capture, keeping the queue and its buffers.
    void pause();
    // Disposes of the queue; the next open() makes fresh buffers.
    void stop();
    // Lets go of the queue without touching the port, whose buffers then leave
    // circulation as they come back.
    void forget() { queue_ = false; }

    bool exists() const { return queue_; }
    bool isListening() const { return queue_ && capture_ && capture_->isRunning(); }

    void setupFormat();
    void setupBuffers();
    const AudioCapture::Format& format() const { return format_; }
    AudioCapture* capture() const { return capture_; }
    Log& log() const { return log_; }

private:
    CaptureQueue(AudioCapture* capture, Log& log) : capture_(capture), log_(log) {}

    AudioCapture* const capture_;
    Log& log_;
    std::atomic<bool> queue_{false};
    AudioCapture::Format format_;
};

} // namespace uke
