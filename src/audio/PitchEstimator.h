// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <cstdint>
#include <memory>
#include <vector>

#include <kiss_fftr.h>

namespace uke {

// The fundamental frequency of one block of 16-bit samples: the block's raw
// magnitude spectrum, the harmonic sum of that spectrum with itself compressed by
// 2 and by 3, and the hertz of the sum's strongest bin.
//
// Not thread-safe: one estimator belongs to one thread at a time (its arrays are
// reused by every estimate).
class PitchEstimator {
public:
    static constexpr int kFftSize = 32768;     // samples: every block is zero-padded to this length
    static constexpr int kBins = kFftSize / 2; // bins per spectrum; the Nyquist bin is left out

    // sampleRate: hertz of the samples to come; only the bin-to-hertz conversion uses it.
    explicit PitchEstimator(double sampleRate);

    // Hertz of the strongest harmonic-sum bin of `samples`; `length` is in bytes (an
    // odd last byte is dropped, and samples past kFftSize are not read). Every array
    // starts cleared, so an estimate never depends on the one before.
    float estimate(const int16_t* samples, uint32_t length);

    // The steps of an estimate, each over the arrays the last one left.
    // Transforms `totalSamples` samples (at most kFftSize) into freq_db().
    void performFFT(const int16_t* samples, uint32_t totalSamples);
    // freq_db() plus its 2x and 3x compressions into freq_db_harmonic().
    void addHarmonics();
    // The strongest bin of freq_db_harmonic(), the first of equal maxima; 0 when all are 0.
    uint32_t findTopSpike() const;
    // Hertz of a spectrum bin, with no interpolation.
    float frequencyOfBin(uint32_t bin) const;

    // The spectra of the last estimate: kBins linear magnitudes each (not decibels,
    // whatever the name says).
    double* freq_db() { return freqDb_.data(); }
    double* freq_db_harmonic() { return freqDbHarmonic_.data(); }

    // Hamming window coefficient of sample n of N, with its constant rounded as the
    // estimate's calibration was made with. Not applied by estimate().
    static double hamming_window(int16_t n, int16_t N);
    // Windows `count` samples in place, truncating toward zero.
    static void performWindow(int16_t* samples, uint32_t count);

private:
    struct FreeConfig {
        void operator()(kiss_fftr_cfg cfg) const;
    };

    double sampleRate_;
    // Made once: a configuration is only read by the transform, so reuse is exact.
    std::unique_ptr<kiss_fftr_state, FreeConfig> config_;
    std::vector<kiss_fft_scalar> in_;
    std::vector<kiss_fft_cpx> out_;
    std::vector<double> freqDb_;
    std::vector<double> freqDbHarmonic_;
    std::vector<int32_t> whole_; // whole part of each magnitude, for the harmonic sum
    uint32_t filled_ = 0;        // leading samples of in_ the last transform wrote
};

} // namespace uke
