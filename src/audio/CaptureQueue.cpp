// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#include "audio/CaptureQueue.h"

namespace uke {

std::shared_ptr<CaptureQueue> CaptureQueue::make(AudioCapture* capture, Log& log) {
    std::shared_ptr<CaptureQueue> queue(new CaptureQueue(capture, log));
    queue->setupFormat();
    return queue;
}

bool CaptureQueue::open(Delivery delivery) {
    if (queue_)
        return false;
    setupFormat();
    if (!capture_) {
        log_.log("Error creating session: no audio capture is configured");
        return false;
    }
    const auto self = shared_from_this();
    const bool opened =
        capture_->newInput(format_, [self, delivery](int bufferId, const int16_t* samples, uint32_t byteSize) {
            // A buffer that comes back while not listening leaves circulation.
            if (!self->isListening())
                return;
            delivery(samples, byteSize);
            self->capture_->enqueueBuffer(bufferId);
        });
    if (!opened) {
        // Without an input the app keeps running with no readings.
        const std::string reason = capture_->lastError();
        log_.log("Error creating session: " + (reason.empty() ? std::string("no audio input is available") : reason));
        return false;
    }
    queue_ = true;
    setupBuffers();
    return true;
}

void CaptureQueue::start() {
    if (queue_)
        capture_->start();
}

void CaptureQueue::pause() {
    if (isListening())
        capture_->stop();
}

void CaptureQueue::stop() {
    if (queue_) {
        capture_->dispose();
        queue_ = false;
    }
}

void CaptureQueue::setupFormat() {
    format_.sampleRate = kSampleRate;
    format_.channels = 1;
    format_.bitsPerChannel = 16;
}

void CaptureQueue::setupBuffers() {
    if (!capture_)
        return;
    for (int i = 0; i < kBufferCount; ++i)
        capture_->enqueueBuffer(capture_->allocateBuffer(kBufferBytes));
}

} // namespace uke
