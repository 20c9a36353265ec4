// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#include "audio/MicListener.h"

#include <algorithm>
#include <cstring>

#include "base/Format.h"

namespace uke {

namespace {

// The class-wide state: the one instance and what configure() handed over.
std::mutex classLock;
MicListener* instance = nullptr;
AudioCapture* configuredCapture = nullptr;
Log* configuredLog = nullptr;

class NullLog : public Log {
public:
    void log(const std::string&) override {}
};
NullLog nullLog;

} // namespace

MicListener::MicListener() : queue_(CaptureQueue::make(configuredCapture, configuredLog ? *configuredLog : nullLog)) {}

void MicListener::configure(AudioCapture& capture, Log& log) {
    std::lock_guard lock(classLock);
    configuredCapture = &capture;
    configuredLog = &log;
    if (instance) {
        instance->replaceQueue(CaptureQueue::make(&capture, log))->forget();
        instance->meter_.clearReading();
        std::lock_guard bufferLock(instance->mutex_);
        instance->audio_data_len_ = 0;
        ++instance->blockSequence_;
    }
}

void MicListener::detach(AudioCapture& capture) {
    std::lock_guard lock(classLock);
    if (configuredCapture == &capture) {
        configuredCapture = nullptr;
        configuredLog = nullptr;
    }
    if (instance && instance->queue()->capture() == &capture)
        instance->replaceQueue(CaptureQueue::make(nullptr, nullLog))->stop();
}

MicListener* MicListener::allocate() {
    std::lock_guard lock(classLock);
    if (instance)
        return nullptr;
    // Made once and never destroyed: the capture callback may still hold it.
    instance = new MicListener();
    return instance;
}

MicListener* MicListener::sharedListener() {
    {
        std::lock_guard lock(classLock);
        if (instance)
            return instance;
    }
    if (MicListener* made = allocate())
        return made;
    // Another thread made it between the two locks.
    std::lock_guard lock(classLock);
    return instance;
}

std::shared_ptr<CaptureQueue> MicListener::queue() const {
    std::lock_guard lock(queueMutex_);
    return queue_;
}

std::shared_ptr<CaptureQueue> MicListener::replaceQueue(std::shared_ptr<CaptureQueue> next) {
    std::lock_guard lock(queueMutex_);
    std::swap(queue_, next);
    return next;
}

// ---- Capture -----------------------------------------------------------------

void MicListener::listen() {
    const auto q = queue();
    if (!q->exists())
        setupQueue();
    q->start();
}

void MicListener::pause() { queue()->pause(); }

void MicListener::stop() { queue()->stop(); }

bool MicListener::isListening() const { return queue()->isListening(); }

void MicListener::setupQueue() {
    const bool made = queue()->open([this](const int16_t* samples, uint32_t byteSize) {
        setAudioBuffer(samples, byteSize);
        meter_.measure(samples, std::min(byteSize, kBufferBytes) / 2);
    });
    if (made)
        setupMetering();
}

void MicListener::setupFormat() { queue()->setupFormat(); }

void MicListener::setupBuffers() { queue()->setupBuffers(); }

void MicListener::setupMetering() {
    const auto q = queue();
    meter_.reset(q->format().channels);
    // The meter cannot fail to switch on here, and the status line is logged
    // whatever the outcome.
    q->log().log(format("AudioQueueSetProperty error: %d", 0));
}

// ---- Level -------------------------------------------------------------------

void MicListener::updateLevels() { meter_.update(); }

const LevelMeterState* MicListener::levels() {
    if (!isListening())
        return nullptr;
    updateLevels();
    return meter_.states();
}

float MicListener::averagePower() {
    const LevelMeterState* l = levels();
    return l ? l[0].mAveragePower : 0.0f;
}

float MicListener::peakPower() {
    const LevelMeterState* l = levels();
    return l ? l[0].mPeakPower : 0.0f;
}

// ---- Pitch estimate ----------------------------------------------------------

void MicListener::setAudioBuffer(const int16_t* samples, uint32_t length) {
    // A capture buffer is never larger than kBufferBytes; anything beyond is not kept.
    length = std::min(length, kBufferBytes);
    std::lock_guard lock(mutex_);
    std::memcpy(audio_data_, samples, length);
    audio_data_len_ = length;
    ++blockSequence_;
}

float MicListener::frequency() {
    // The tick asks a hundred times a second, a block lasts about 0.29 s: the same
    // block would be estimated some thirty times over. The estimate of a block is
    // always the same, so it is made once and kept until the next block arrives.
    int16_t snapshot[kBufferBytes / 2];
    uint32_t length = 0;
    {
        std::lock_guard lock(mutex_);
        if (blockSequence_ == estimatedSequence_)
            return estimate_;
        estimatedSequence_ = blockSequence_;
        std::memcpy(snapshot, audio_data_, kBufferBytes);
        length = audio_data_len_;
    }
    estimate_ = length == 0 ? 0.0f : estimator_.estimate(snapshot, length);
    return estimate_;
}

} // namespace uke
