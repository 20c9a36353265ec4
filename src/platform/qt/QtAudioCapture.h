// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Microphone capture on Qt Multimedia, for the listener's recording queue.
#include <memory>

#include "platform/AudioCapture.h"

namespace uke {

struct QtAudioCaptureOptions {
    // Hertz to open the device at; 0 asks for the queue's own rate and falls back to
    // the device's preferred rate only when it refuses that. Any other rate is
    // resampled to the queue's rate.
    int deviceRate = 0;
    // The source's buffer in bytes: small, so that the first samples arrive soon
    // after start.
    int sourceBufferBytes = 2048;
};

// A QAudioSource on a thread of its own, its samples converted to the queue's
// format (16-bit mono at its rate) and cut into blocks of exactly one buffer.
// Each filled buffer goes to the callback on that thread. Needs a
// QCoreApplication.
std::unique_ptr<AudioCapture> makeQtAudioCapture(const QtAudioCaptureOptions& options);

} // namespace uke
