// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// One channel of floats to another sample rate, with libsamplerate's band-limited
// converters. Desktop only: the browser has no libsamplerate, and its page
// resamples in its capture worklet.
#include <cstddef>
#include <string>
#include <vector>

namespace uke {

class Resampler {
public:
    // Fastest keeps 80 % of the band and Medium 90 %, both with 97 dB of noise
    // rejection; Medium costs several times as much.
    enum class Quality { Fastest, Medium };

    // `ratio` is output rate over input rate; error() says when no converter could
    // be made for it.
    Resampler(double ratio, Quality quality);
    ~Resampler();
    Resampler(const Resampler&) = delete;
    Resampler& operator=(const Resampler&) = delete;

    // Appends to `out` what `count` more input samples give; `last` also drains
    // what the filter still holds. False, with error() set, when the converter fails.
    bool process(const float* in, size_t count, bool last, std::vector<float>& out);
    // Forgets the input so far, as for a new stream.
    void reset();
    const std::string& error() const { return error_; }

private:
    void* state_ = nullptr; // libsamplerate's SRC_STATE, kept out of this header
    double ratio_;
    std::string error_;
};

} // namespace uke
