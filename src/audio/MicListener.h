#pragma once
#include <atomic>
#include <cstdint>
#include <mutex>
#include <vector>

#include <kiss_fftr.h>

#include "audio/PitchSource.h"
#include "platform/AudioCapture.h"
#include "platform/Log.h"

namespace uke {

// One channel of the capture level meter: linear amplitudes, 0.0 (silence) to
// 1.0 (full scale).
struct LevelMeterState {
    float mAveragePower = 0.0f;
    float mPeakPower = 0.0f;
};

// The process-wide microphone listener: owns the recording queue, keeps the latest
// captured buffer, meters it, and estimates its fundamental frequency.
//
// Threads: the capture callback runs on the capture thread and only copies a buffer
// in (under the listener's mutex) and updates the meter. Everything else, the
// estimate in particular, runs on one thread at a time (the main thread in the app):
// the analysis arrays are not locked.
class MicListener : public PitchSource {
public:
    static constexpr double kSampleRate = 14039.0; // hertz; the bin-to-hertz conversion depends on it
    static constexpr uint32_t kBufferBytes = 8192; // 4096 samples, about 0.29 s
    static constexpr int kBufferCount = 3;
    static constexpr int kFftSize = 32768;
    static constexpr int kBins = kFftSize / 2; // the Nyquist bin is left out

    // Hands the listener its capture queue and log; called by the platform before
    // the first sharedListener(). Calling it again (a test, a second analysis in the
    // tool) forgets the previous queue without touching it and starts over with no
    // queue and no stored buffer.
    static void configure(AudioCapture& capture, Log& log);
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

    // Level.
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
    float getFreqFromBuffer(const int16_t* samples, uint32_t length);
    void performFFT(const int16_t* samples, uint32_t totalSamples);
    void addHarmonics();
    uint32_t findTopSpike();
    // Hertz of a spectrum bin at the capture rate, with no interpolation.
    float frequencyOfBin(uint32_t bin) const;
    // The spectra of the last estimate: kBins linear magnitudes each (not decibels,
    // whatever the name says).
    double* freq_db() { return freq_db_; }
    double* freq_db_harmonic() { return freq_db_harmonic_; }
    double hamming_window(int16_t n, int16_t N);
    void performWindow(int16_t* samples, uint32_t count);

private:
    MicListener();
    void onCapturedBuffer(int bufferId, const int16_t* samples, uint32_t byteSize);
    void meter(const int16_t* samples, uint32_t count);

    AudioCapture* capture_ = nullptr;
    Log* log_ = nullptr;
    std::vector<LevelMeterState> levels_;
    std::atomic<bool> queue_{false};
    AudioCapture::Format format_;
    // The capture thread's meter reading of the latest buffer; levels_ copies it.
    std::atomic<float> meterAverage_{0.0f};
    std::atomic<float> meterPeak_{0.0f};

    std::mutex mutex_; // guards audio_data_ and audio_data_len_
    int16_t audio_data_[8192] = {};
    uint32_t audio_data_len_ = 0;
    kiss_fft_scalar in_fft_[kFftSize] = {};
    kiss_fft_cpx out_fft_[kFftSize] = {};
    double freq_db_[kBins] = {};
    double freq_db_harmonic_[kBins] = {};
};

} // namespace uke
