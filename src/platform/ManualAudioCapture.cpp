// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/ManualAudioCapture.h"

#include <algorithm>

namespace uke {

bool ManualAudioCapture::newInput(const Format& f, Callback callback) {
    format = f;
    callback_ = std::move(callback);
    exists = true;
    return true;
}

int ManualAudioCapture::allocateBuffer(uint32_t byteSize) {
    const int id = nextId_++;
    bufferSizes[id] = byteSize;
    return id;
}

void ManualAudioCapture::enqueueBuffer(int bufferId) {
    if (bufferSizes.count(bufferId))
        enqueued.push_back(bufferId);
}

void ManualAudioCapture::dispose() {
    exists = false;
    running = false;
    bufferSizes.clear();
    enqueued.clear();
    callback_ = nullptr;
}

bool ManualAudioCapture::deliver(const std::vector<int16_t>& samples) {
    if (!running || enqueued.empty() || !callback_)
        return false;
    const int id = enqueued.front();
    enqueued.erase(enqueued.begin());
    const uint32_t capacity = bufferSizes[id] / 2;
    const uint32_t n = std::min<uint32_t>(capacity, static_cast<uint32_t>(samples.size()));
    scratch_.assign(samples.begin(), samples.begin() + n);
    callback_(id, scratch_.data(), n * 2);
    return true;
}

} // namespace uke
