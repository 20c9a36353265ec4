// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <cstdint>
#include <memory>
#include <mutex>

#include "audio/CaptureQueue.h"
#include "audio/LevelMeter.h"
#include "audio/PitchEstimator.h"
#include "audio/PitchSource.h"
#include "platform/AudioCapture.h"
#include "platform/Log.h"

namespace uke {

// The process-wide microphone listener: the capture queue (CaptureQueue), the level
// meter (LevelMeter), the latest captured buffer, and the pitch estimate of that
// buffer (PitchEstimator). Its operations keep the names the tuner and the tool use
// and hand each to the object that does it.
//
// Threads: the capture callback runs on the capture thread; it reads only its own
// queue (whose port never changes), copies the buffer in under the listener's
// mutex and meters it into atomics. configure() and detach() swap the whole queue
// under a lock, so they never rewrite what a running callback reads. Everything
// else, the estimate in particular, runs on one thread at a time (the main thread
// in the app): the analysis arrays are not locked.
class MicListener : public PitchSource {
public:
    static constexpr double kSampleRate = CaptureQueue::kSampleRate;     // hertz
    static constexpr uint32_t kBufferBytes = CaptureQueue::kBufferBytes; // bytes per capture buffer
    static constexpr int kBufferCount = CaptureQueue::kBufferCount;      // capture buffers in circulation
    static constexpr int kFftSize = PitchEstimator::kFftSize;            // samples per transform
    static constexpr int kBins = PitchEstimator::kBins;                  // bins per spectrum

    // Hands the listener its capture port and log; called by the platform before
    // the first sharedListener(). Calling it again (a test, a second analysis in the
    // tool) forgets the previous queue without touching it and starts over with no
    // queue and no stored buffer.
    static void configure(AudioCapture& capture, Log& log);
    // The owner of a configured port calls this before destroying it: the queue on
    // it, if any, is disposed of, and the listener forgets the port and its log
    // (listen() then logs that no capture is configured). Any other port is left alone.
    static void detach(AudioCapture& capture);
    // configure() for as long as it lives, then detach().
    class Attachment {
    public:
        Attachment(AudioCapture& capture, Log& log) : capture_(capture) { configure(capture, log); }
        ~Attachment() { detach(capture_); }
        Attachment(const Attachment&) = delete;
        Attachment& operator=(const Attachment&) = delete;

    private:
        AudioCapture& capture_;
    };

    static MicListener* sharedListener();
    // Makes the one instance; nullptr when it already exists.
    static MicListener* allocate();

    MicListener(const MicListener&) = delete;
    MicListener& operator=(const MicListener&) = delete;

    // Capture.
    void listen() override;
    void pause();
    void stop();
    bool isListening() const;
    bool hearing() const override { return isListening(); }

    // Level: nullptr and 0.0 while not listening.
    const LevelMeterState* levels();
    void updateLevels();
    float averagePower() override;
    float peakPower();

    // Queue set-up, run by listen() when there is no queue.
    void setupQueue();
    void setupFormat();
    void setupBuffers();
    void setupMetering();

    // Pitch estimate. Lengths are in bytes, counts in samples, results in hertz.
    void setAudioBuffer(const int16_t* samples, uint32_t length);
    float frequency() override;
    float getFreqFromBuffer(const int16_t* samples, uint32_t length) { return estimator_.estimate(samples, length); }
    void performFFT(const int16_t* samples, uint32_t totalSamples) { estimator_.performFFT(samples, totalSamples); }
    void addHarmonics() { estimator_.addHarmonics(); }
    uint32_t findTopSpike() { return estimator_.findTopSpike(); }
    float frequencyOfBin(uint32_t bin) const { return estimator_.frequencyOfBin(bin); }
    double* freq_db() { return estimator_.freq_db(); }
    double* freq_db_harmonic() { return estimator_.freq_db_harmonic(); }
    double hamming_window(int16_t n, int16_t N) { return PitchEstimator::hamming_window(n, N); }
    void performWindow(int16_t* samples, uint32_t count) { PitchEstimator::performWindow(samples, count); }

private:
    MicListener();
    std::shared_ptr<CaptureQueue> queue() const;
    // Puts `next` in place of the current queue and returns the one it replaced.
    std::shared_ptr<CaptureQueue> replaceQueue(std::shared_ptr<CaptureQueue> next);

    mutable std::mutex queueMutex_; // guards queue_, the pointer (the queue guards itself)
    std::shared_ptr<CaptureQueue> queue_;
    LevelMeter meter_;

    std::mutex mutex_; // guards audio_data_, audio_data_len_ and blockSequence_
    int16_t audio_data_[kBufferBytes / 2] = {};
    uint32_t audio_data_len_ = 0;
    uint64_t blockSequence_ = 0; // counts blocks handed in (and resets), under mutex_
    // The block frequency() last estimated and its estimate in hertz; main thread only.
    uint64_t estimatedSequence_ = 0;
    float estimate_ = 0.0f;
    PitchEstimator estimator_{kSampleRate};
};

} // namespace uke
