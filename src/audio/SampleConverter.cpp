// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#include "audio/SampleConverter.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace uke {

namespace {

using Encoding = SampleConverter::Encoding;

// Rounded half away from zero and clipped; a decoder's NaN is silence rather than
// an undefined conversion.
int16_t toSample(double v) {
    if (std::isnan(v))
        return 0;
    return static_cast<int16_t>(std::clamp(std::round(v * 32768.0), -32768.0, 32767.0));
}

template <class T> T load(const unsigned char* p) {
    T v;
    std::memcpy(&v, p, sizeof v);
    return v;
}

template <Encoding E> double fraction(const unsigned char* p) {
    if constexpr (E == Encoding::UInt8)
        return (static_cast<double>(*p) - 128.0) / 128.0;
    else if constexpr (E == Encoding::Int16)
        return load<int16_t>(p) / 32768.0;
    else if constexpr (E == Encoding::Int32)
        return load<int32_t>(p) / 2147483648.0;
    else if constexpr (E == Encoding::Float32)
        return load<float>(p);
    else
        return load<double>(p);
}

} // namespace

size_t SampleConverter::bytesPerSample(Encoding encoding) {
    switch (encoding) {
    case Encoding::UInt8: return 1;
    case Encoding::Int16: return 2;
    case Encoding::Int32: return 4;
    case Encoding::Float32: return 4;
    case Encoding::Float64: return 8;
    }
    return 1;
}

SampleConverter::SampleConverter(Input input, int outputRate, Resampler::Quality quality)
    : input_(input), frameBytes_(bytesPerSample(input.encoding) * static_cast<size_t>(std::max(input.channels, 0))) {
    if (input.channels < 1 || input.rate < 1 || outputRate < 1) {
        error_ = "no audio comes as " + std::to_string(input.channels) + " channels at " + std::to_string(input.rate) +
                 " Hz";
        return;
    }
    if (input.rate == outputRate)
        return;
    resampler_ = std::make_unique<Resampler>(static_cast<double>(outputRate) / input.rate, quality);
    error_ = resampler_->error();
}

SampleConverter::~SampleConverter() = default;

void SampleConverter::reset() {
    carry_.clear();
    if (resampler_)
        resampler_->reset();
}

template <Encoding E> void SampleConverter::mix(const unsigned char* frames, size_t count, std::vector<int16_t>& out) {
    const auto channels = static_cast<size_t>(input_.channels);
    const size_t sampleBytes = bytesPerSample(E);
    for (size_t f = 0; f < count; ++f, frames += frameBytes_) {
        double sum = 0.0;
        for (size_t c = 0; c < channels; ++c)
            sum += fraction<E>(frames + c * sampleBytes);
        const double v = sum / input_.channels;
        // At the output rate 16-bit input comes out exactly as it went in.
        if (!resampler_)
            out.push_back(toSample(v));
        else
            mono_.push_back(std::isnan(v) ? 0.0f : static_cast<float>(v));
    }
}

void SampleConverter::mixAny(const unsigned char* frames, size_t count, std::vector<int16_t>& out) {
    switch (input_.encoding) {
    case Encoding::UInt8: return mix<Encoding::UInt8>(frames, count, out);
    case Encoding::Int16: return mix<Encoding::Int16>(frames, count, out);
    case Encoding::Int32: return mix<Encoding::Int32>(frames, count, out);
    case Encoding::Float32: return mix<Encoding::Float32>(frames, count, out);
    case Encoding::Float64: return mix<Encoding::Float64>(frames, count, out);
    }
}

bool SampleConverter::push(const void* bytes, size_t size, std::vector<int16_t>& out) {
    if (!error_.empty())
        return false;
    auto p = static_cast<const unsigned char*>(bytes);
    mono_.clear();
    if (!carry_.empty()) {
        const size_t take = std::min(size, frameBytes_ - carry_.size());
        carry_.insert(carry_.end(), p, p + take);
        p += take;
        size -= take;
        if (carry_.size() < frameBytes_)
            return true;
        mixAny(carry_.data(), 1, out);
        carry_.clear();
    }
    const size_t whole = size / frameBytes_;
    mixAny(p, whole, out);
    carry_.assign(p + whole * frameBytes_, p + size);
    return !resampler_ || resample(false, out);
}

bool SampleConverter::finish(std::vector<int16_t>& out) {
    if (!error_.empty())
        return false;
    carry_.clear();
    mono_.clear();
    return !resampler_ || resample(true, out);
}

bool SampleConverter::resample(bool last, std::vector<int16_t>& out) {
    resampled_.clear();
    if (!resampler_->process(mono_.data(), mono_.size(), last, resampled_)) {
        error_ = resampler_->error();
        return false;
    }
    for (const float v : resampled_)
        out.push_back(toSample(v));
    return true;
}

} // namespace uke
