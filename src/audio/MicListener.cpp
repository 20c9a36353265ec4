#include "audio/MicListener.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstring>

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

MicListener::MicListener() : capture_(configuredCapture), log_(configuredLog ? configuredLog : &nullLog) {
    // Written here as well as when a queue is made, so that an estimate over a
    // buffer handed in directly (the analysis tool) converts at the capture rate.
    setupFormat();
}

void MicListener::configure(AudioCapture& capture, Log& log) {
    std::lock_guard lock(classLock);
    configuredCapture = &capture;
    configuredLog = &log;
    if (instance) {
        instance->capture_ = &capture;
        instance->log_ = &log;
        instance->queue_ = false;
        instance->meterAverage_ = 0.0f;
        instance->meterPeak_ = 0.0f;
        std::lock_guard bufferLock(instance->mutex_);
        instance->audio_data_len_ = 0;
    }
}

MicListener* MicListener::allocate() {
    std::lock_guard lock(classLock);
    if (instance)
        return nullptr;
    // About 670 KB of arrays: the listener lives on the heap, never on a stack.
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

// ---- Capture -----------------------------------------------------------------

void MicListener::listen() {
    if (!queue_)
        setupQueue();
    if (queue_)
        capture_->start();
}

void MicListener::pause() {
    if (isListening())
        capture_->stop();
}

void MicListener::stop() {
    if (queue_) {
        capture_->dispose();
        queue_ = false;
    }
}

bool MicListener::isListening() const { return queue_ && capture_->isRunning(); }

void MicListener::setupQueue() {
    if (queue_)
        return;
    setupFormat();
    if (!capture_) {
        log_->log("Error creating session: no audio capture is configured");
        return;
    }
    const bool opened = capture_->newInput(format_, [this](int bufferId, const int16_t* samples, uint32_t byteSize) {
        onCapturedBuffer(bufferId, samples, byteSize);
    });
    if (!opened) {
        // Without an input the app keeps running with no readings.
        const std::string reason = capture_->lastError();
        log_->log("Error creating session: " + (reason.empty() ? std::string("no audio input is available") : reason));
        return;
    }
    queue_ = true;
    setupBuffers();
    setupMetering();
}

void MicListener::setupFormat() {
    format_.sampleRate = kSampleRate;
    format_.channels = 1;
    format_.bitsPerChannel = 16;
}

void MicListener::setupBuffers() {
    for (int i = 0; i < kBufferCount; ++i)
        capture_->enqueueBuffer(capture_->allocateBuffer(kBufferBytes));
}

void MicListener::setupMetering() {
    levels_.assign(format_.channels, LevelMeterState{});
    meterAverage_.store(0.0f, std::memory_order_relaxed);
    meterPeak_.store(0.0f, std::memory_order_relaxed);
    // The meter cannot fail to switch on here, and the status line is logged
    // whatever the outcome.
    log_->log(format("AudioQueueSetProperty error: %d", 0));
}

void MicListener::onCapturedBuffer(int bufferId, const int16_t* samples, uint32_t byteSize) {
    // A buffer that comes back while not listening leaves circulation.
    if (!isListening())
        return;
    setAudioBuffer(samples, byteSize);
    meter(samples, std::min(byteSize, kBufferBytes) / 2);
    capture_->enqueueBuffer(bufferId);
}

// ---- Level -------------------------------------------------------------------

void MicListener::meter(const int16_t* samples, uint32_t count) {
    double sumSquares = 0.0;
    int peak = 0;
    for (uint32_t i = 0; i < count; ++i) {
        const int s = samples[i];
        sumSquares += static_cast<double>(s) * s;
        peak = std::max(peak, std::abs(s));
    }
    const double rms = count ? std::sqrt(sumSquares / count) : 0.0;
    meterAverage_.store(static_cast<float>(rms / 32768.0), std::memory_order_relaxed);
    meterPeak_.store(static_cast<float>(peak / 32768.0), std::memory_order_relaxed);
}

void MicListener::updateLevels() {
    if (levels_.empty())
        return;
    levels_[0].mAveragePower = meterAverage_.load(std::memory_order_relaxed);
    levels_[0].mPeakPower = meterPeak_.load(std::memory_order_relaxed);
}

const LevelMeterState* MicListener::levels() {
    if (!isListening())
        return nullptr;
    updateLevels();
    return levels_.data();
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
}

float MicListener::frequency() {
    int16_t snapshot[kBufferBytes / 2];
    uint32_t length = 0;
    {
        std::lock_guard lock(mutex_);
        std::memcpy(snapshot, audio_data_, kBufferBytes);
        length = audio_data_len_;
    }
    if (length == 0)
        return 0.0f;
    return getFreqFromBuffer(snapshot, length);
}

float MicListener::getFreqFromBuffer(const int16_t* samples, uint32_t length) {
    std::fill(std::begin(in_fft_), std::end(in_fft_), 0.0f);
    std::fill(std::begin(out_fft_), std::end(out_fft_), kiss_fft_cpx{0.0f, 0.0f});
    std::fill(std::begin(freq_db_), std::end(freq_db_), 0.0);
    std::fill(std::begin(freq_db_harmonic_), std::end(freq_db_harmonic_), 0.0);
    performFFT(samples, length >> 1);
    addHarmonics();
    return frequencyOfBin(findTopSpike());
}

float MicListener::frequencyOfBin(uint32_t bin) const {
    return static_cast<float>(static_cast<double>(static_cast<float>(bin)) * format_.sampleRate * 3.0517578125e-5);
}

void MicListener::performFFT(const int16_t* samples, uint32_t totalSamples) {
    totalSamples = std::min<uint32_t>(totalSamples, kFftSize);
    // Raw, unwindowed and unscaled: the harmonic sum's whole-number threshold
    // is calibrated on these magnitudes.
    for (uint32_t i = 0; i < totalSamples; ++i)
        in_fft_[i] = static_cast<kiss_fft_scalar>(samples[i]);
    kiss_fftr_cfg cfg = kiss_fftr_alloc(kFftSize, 0, nullptr, nullptr);
    if (!cfg)
        return; // no memory for the plan: the spectrum stays silent and the estimate is 0 Hz
    kiss_fftr(cfg, in_fft_, out_fft_);
    std::free(cfg);
    for (int k = 0; k < kBins; ++k) {
        const double re = out_fft_[k].r;
        const double im = out_fft_[k].i;
        freq_db_[k] = std::sqrt(re * re + im * im) * 6.103515625e-5;
    }
}

void MicListener::addHarmonics() {
    std::copy(std::begin(freq_db_), std::end(freq_db_), freq_db_harmonic_);
    for (int h = 2; h <= 3; ++h) {
        int target = 0;
        // A whole number on purpose: a group adds only the whole part of its
        // largest magnitude, and nothing below 1.0.
        int32_t m = 0;
        for (int i = 0; i < kBins; ++i) {
            const int t = static_cast<int>(std::round(static_cast<double>(i) / h));
            if (target < t) {
                freq_db_harmonic_[target] += static_cast<double>(m);
                target = t;
                m = 0;
            }
            m = static_cast<int32_t>(freq_db_[i] > m ? freq_db_[i] : static_cast<double>(m));
        }
        // The last group (target 8192 for h = 2, 5461 for h = 3) is left unadded.
    }
}

uint32_t MicListener::findTopSpike() {
    double best = 0.0;
    uint32_t index = 0;
    for (int i = 0; i < kBins; ++i) {
        if (freq_db_harmonic_[i] > best) {
            best = freq_db_harmonic_[i];
            index = static_cast<uint32_t>(i);
        }
    }
    return index;
}

double MicListener::hamming_window(int16_t n, int16_t N) {
    const int span = N - 1;
    return 0.54 + (-0.46) * std::cos((6.283185308 / span) * n);
}

void MicListener::performWindow(int16_t* samples, uint32_t count) {
    for (uint32_t i = 0; i < count; ++i) {
        const double v = hamming_window(static_cast<int16_t>(i), static_cast<int16_t>(count)) * samples[i];
        // A one-sample window divides by zero; the NaN is stored as 0 rather than
        // converted, which C++ leaves undefined.
        samples[i] = std::isfinite(v) ? static_cast<int16_t>(v) : int16_t{0};
    }
}

} // namespace uke
