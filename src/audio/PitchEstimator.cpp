#include "audio/PitchEstimator.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace uke {

void PitchEstimator::FreeConfig::operator()(kiss_fftr_cfg cfg) const { kiss_fftr_free(cfg); }

PitchEstimator::PitchEstimator(double sampleRate)
    : sampleRate_(sampleRate), config_(kiss_fftr_alloc(kFftSize, 0, nullptr, nullptr)), in_(kFftSize), out_(kFftSize),
      freqDb_(kBins), freqDbHarmonic_(kBins) {}

float PitchEstimator::estimate(const int16_t* samples, uint32_t length) {
    std::fill(in_.begin(), in_.end(), 0.0f);
    std::fill(out_.begin(), out_.end(), kiss_fft_cpx{0.0f, 0.0f});
    std::fill(freqDb_.begin(), freqDb_.end(), 0.0);
    std::fill(freqDbHarmonic_.begin(), freqDbHarmonic_.end(), 0.0);
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
    if (!config_)
        return; // no memory for the plan: the spectrum stays silent and the estimate is 0 Hz
    kiss_fftr(config_.get(), in_.data(), out_.data());
    for (int k = 0; k < kBins; ++k) {
        const double re = out_[k].r;
        const double im = out_[k].i;
        freqDb_[k] = std::sqrt(re * re + im * im) * 6.103515625e-5;
    }
}

void PitchEstimator::addHarmonics() {
    std::copy(freqDb_.begin(), freqDb_.end(), freqDbHarmonic_.begin());
    for (int h = 2; h <= 3; ++h) {
        int target = 0;
        // A whole number on purpose: a group adds only the whole part of its
        // largest magnitude, and nothing below 1.0.
        int32_t m = 0;
        for (int i = 0; i < kBins; ++i) {
            const int t = static_cast<int>(std::round(static_cast<double>(i) / h));
            if (target < t) {
                freqDbHarmonic_[target] += static_cast<double>(m);
                target = t;
                m = 0;
            }
            m = static_cast<int32_t>(freqDb_[i] > m ? freqDb_[i] : static_cast<double>(m));
        }
        // The last group (target 8192 for h = 2, 5461 for h = 3) is left unadded.
    }
}

uint32_t PitchEstimator::findTopSpike() const {
    double best = 0.0;
    uint32_t index = 0;
    for (int i = 0; i < kBins; ++i) {
        if (freqDbHarmonic_[i] > best) {
            best = freqDbHarmonic_[i];
            index = static_cast<uint32_t>(i);
        }
    }
    return index;
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
