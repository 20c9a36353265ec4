// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// A device's or a decoder's interleaved samples, in any of the usual formats, any
// channel count and any rate, turned into what the listener takes: 16-bit mono at
// its capture rate. Fed chunk by chunk, it keeps what it needs between chunks (a
// frame split across two, the resampler's history), so a stream of any length
// goes through in the same memory.
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "audio/Resampler.h"

namespace uke {

class SampleConverter {
public:
    // Samples in the machine's byte order. Integers are read as fractions of full
    // scale (over 2^(bits - 1); unsigned 8-bit about its middle), as libsndfile
    // reads them; floats as they are.
    enum class Encoding { UInt8, Int16, Int32, Float32, Float64 };
    struct Input {
        Encoding encoding = Encoding::Int16;
        int channels = 1;
        int rate = 0; // hertz
    };

    // Channels are averaged; another rate than `outputRate` goes through a
    // Resampler of `quality`, which the caller chooses for its cost.
    SampleConverter(Input input, int outputRate, Resampler::Quality quality);
    ~SampleConverter();

    // Empty unless the input cannot be converted (no channels, a rate out of the
    // resampler's reach) or the resampler failed.
    const std::string& error() const { return error_; }
    static size_t bytesPerSample(Encoding encoding);

    // Appends to `out` what `size` more bytes of input give. False when the
    // converter is unusable or the resampler failed (it then converts nothing
    // more); error() says why.
    bool push(const void* bytes, size_t size, std::vector<int16_t>& out);
    // The end of the input: appends what the resampler still holds. A part frame
    // left over is dropped.
    bool finish(std::vector<int16_t>& out);
    // Forgets the input so far, as for a new stream.
    void reset();

private:
    template <Encoding E> void mix(const unsigned char* frames, size_t count, std::vector<int16_t>& out);
    void mixAny(const unsigned char* frames, size_t count, std::vector<int16_t>& out);
    bool resample(bool last, std::vector<int16_t>& out);

    Input input_;
    size_t frameBytes_ = 0;
    std::unique_ptr<Resampler> resampler_; // none at the output rate
    std::string error_;
    std::vector<unsigned char> carry_; // the start of a frame whose end has not come
    std::vector<float> mono_, resampled_;
};

} // namespace uke
