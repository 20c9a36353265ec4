// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#include "audio/PitchEstimator.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace uke {

namespace {

// Wider vectors where the processor has them, chosen once at load time. The
// results are the same bit for bit on every path: the squares of the float
// parts are exact in double, so a fused multiply-add rounds the sum once just
// like the separate add does, and every root is correctly rounded. Sanitizer
// builds keep one path: the choosing runs while the program is loaded, before
// a sanitizer's runtime is ready for instrumented code. GCC only: Clang wants
// the clones named where a member is first declared.
#if defined(__x86_64__) && defined(__GNUC__) && !defined(__clang__) && !defined(__SANITIZE_ADDRESS__) &&                \
    !defined(__SANITIZE_THREAD__)
#define UKE_WIDE_VECTORS __attribute__((target_clones("avx2", "default")))
#else
#define UKE_WIDE_VECTORS
#endif

// Linear magnitude of each bin, scaled by 1/16384. Built without errno for
// sqrt (see CMakeLists.txt), so the loop vectorises: the root of a sum of
// squares is never negative.
UKE_WIDE_VECTORS void magnitudes(const kiss_fft_cpx* out, double* db) {
    for (int k = 0; k < PitchEstimator::kBins; ++k) {
        const double re = out[k].r;
        const double im = out[k].i;
        db[k] = std::sqrt(re * re + im * im) * 6.103515625e-5;
    }
}

} // namespace

void PitchEstimator::FreeConfig::operator()(kiss_fftr_cfg cfg) const { kiss_fftr_free(cfg); }

PitchEstimator::PitchEstimator(double sampleRate)
    : sampleRate_(sampleRate), config_(kiss_fftr_alloc(kFftSize, 0, nullptr, nullptr)), in_(kFftSize),
      out_(kBins + 1), freqDb_(kBins), freqDbHarmonic_(kBins), whole_(kBins) {}

float PitchEstimator::estimate(const int16_t* samples, uint32_t length) {
    // Every array is entirely rewritten by the steps below, so none is cleared
    // first; the padding is kept at zero by performFFT().
    performFFT(samples, length >> 1);
    addHarmonics();
    return frequencyOfBin(findTopSpike());
}

float PitchEstimator::frequencyOfBin(uint32_t bin) const {
    return static_cast<float>(static_cast<double>(static_cast<float>(bin)) * sampleRate_ * 3.0517578125e-5);
}

void PitchEstimator::performFFT(const int16_t* samples, uint32_t totalSamples) {
    totalSamples = std::min<uint32_t>(totalSamples, kFftSize);
    // Raw, unwindowed and unscaled: the harmonic sum's whole-number threshold
    // is calibrated on these magnitudes.
    for (uint32_t i = 0; i < totalSamples; ++i)
        in_[i] = static_cast<kiss_fft_scalar>(samples[i]);
    // The padding is zero from construction; only what a longer block left
    // behind needs clearing, not the whole 32768 points every time.
    if (filled_ > totalSamples)
        std::fill(in_.begin() + totalSamples, in_.begin() + filled_, 0.0f);
    filled_ = totalSamples;
    if (!config_) {
        // No memory for the plan: the spectrum stays silent and the estimate is 0 Hz.
        std::fill(freqDb_.begin(), freqDb_.end(), 0.0);
        return;
    }
    kiss_fftr(config_.get(), in_.data(), out_.data());
    magnitudes(out_.data(), freqDb_.data());
}

UKE_WIDE_VECTORS void PitchEstimator::addHarmonics() {
    // A group adds only the whole part of its largest magnitude, and nothing
    // below 1.0 (the sum's threshold is a whole number on purpose). Bin i joins
    // group round(i / h), halves away from zero: {0}, {1, 2}, {3, 4}, ... for
    // h = 2 and {0, 1}, {2, 3, 4}, {5, 6, 7}, ... for h = 3. The groups are fixed,
    // so they are walked directly rather than found by rounding every quotient.
    const double* db = freqDb_.data();
    int32_t* whole = whole_.data();
    for (int i = 0; i < kBins; ++i)
        whole[i] = db[i] > 0.0 ? static_cast<int32_t>(db[i]) : 0; // NaN and negatives add nothing
    double* sum = freqDbHarmonic_.data();
    // The top group of each pass (8192 for h = 2, 5461 for h = 3) is left unadded.
    sum[0] = db[0] + static_cast<double>(whole[0]);
    for (int t = 1; t < kBins / 2; ++t)
        sum[t] = db[t] + static_cast<double>(std::max(whole[2 * t - 1], whole[2 * t]));
    std::copy(db + kBins / 2, db + kBins, sum + kBins / 2);
    sum[0] += static_cast<double>(std::max(whole[0], whole[1]));
    for (int t = 1; t < (kBins + 1) / 3; ++t)
        sum[t] += static_cast<double>(std::max(std::max(whole[3 * t - 1], whole[3 * t]), whole[3 * t + 1]));
}

UKE_WIDE_VECTORS uint32_t PitchEstimator::findTopSpike() const {
    // Eight independent running maxima instead of one chain of compares, chosen
    // without branches; each lane keeps its first maximum, and the lanes' tie
    // goes to the lowest bin, so the answer is still the first of equal maxima
    // (0 when all are 0).
    constexpr int kLanes = 8;
    static_assert(kBins % kLanes == 0);
    const double* sum = freqDbHarmonic_.data();
    double best[kLanes] = {};
    int64_t index[kLanes] = {};
    for (int i = 0; i < kBins; i += kLanes) {
        for (int l = 0; l < kLanes; ++l) {
            const bool higher = sum[i + l] > best[l];
            best[l] = higher ? sum[i + l] : best[l];
            index[l] = higher ? i + l : index[l];
        }
    }
    double top = 0.0;
    int64_t at = 0;
    for (int l = 0; l < kLanes; ++l) {
        if (best[l] > top || (best[l] == top && best[l] > 0.0 && index[l] < at)) {
            top = best[l];
            at = index[l];
        }
    }
    return static_cast<uint32_t>(at);
}

double PitchEstimator::hamming_window(int16_t n, int16_t N) {
    const int span = N - 1;
    return 0.54 + (-0.46) * std::cos((6.283185308 / span) * n);
}

void PitchEstimator::performWindow(int16_t* samples, uint32_t count) {
    for (uint32_t i = 0; i < count; ++i) {
        const double v = hamming_window(static_cast<int16_t>(i), static_cast<int16_t>(count)) * samples[i];
        // A one-sample window divides by zero; the NaN is stored as 0 rather than
        // converted, which C++ leaves undefined.
        samples[i] = std::isfinite(v) ? static_cast<int16_t>(v) : int16_t{0};
    }
}

} // namespace uke
