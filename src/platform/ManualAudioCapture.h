// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <map>
#include <string>
#include <vector>

#include "platform/AudioCapture.h"

namespace uke {

// A recording queue whose owner plays the capture thread: deliver() fills the oldest
// enqueued buffer and hands it back, as a device would. The browser's page delivers
// the blocks its worklet records this way, and the tool delivers a file's blocks.
// The queue's state is open to that owner, which is the device here.
class ManualAudioCapture : public AudioCapture {
public:
    bool newInput(const Format& format, Callback callback) override;
    int allocateBuffer(uint32_t byteSize) override;
    void enqueueBuffer(int bufferId) override;
    void start() override { running = exists; }
    void stop() override { running = false; }
    void dispose() override;
    bool isRunning() const override { return running; }
    std::string lastError() const override { return error; }

    // False when the queue is not running or no buffer is enqueued.
    bool deliver(const std::vector<int16_t>& samples);

    std::string error;
    bool exists = false;
    bool running = false;
    Format format;
    std::map<int, uint32_t> bufferSizes;  // id -> bytes
    std::vector<int> enqueued;             // ids waiting to be filled, oldest first

private:
    Callback callback_;
    int nextId_ = 1;
    std::vector<int16_t> scratch_;
};

} // namespace uke
