// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
// A device's bytes to the listener's 16-bit mono at 14039 Hz, with no sound server:
// what the microphone capture and the tool's reader both rely on.
#include <cmath>
#include <cstring>
#include <limits>
#include <numbers>
#include <vector>

#include <gtest/gtest.h>

#include "audio/SampleConverter.h"

namespace uke {
namespace {

using Encoding = SampleConverter::Encoding;
using Quality = Resampler::Quality;
constexpr int kOut = 14039;

void append(std::vector<unsigned char>& bytes, Encoding e, double v) {
    const auto put = [&](auto x) {
        const auto at = bytes.size();
        bytes.resize(at + sizeof x);
        std::memcpy(bytes.data() + at, &x, sizeof x);
    };
    switch (e) {
    case Encoding::UInt8: return put(static_cast<uint8_t>(128 + std::lround(v * 127)));
    case Encoding::Int16: return put(static_cast<int16_t>(std::lround(v * 32767)));
    case Encoding::Int32: return put(static_cast<int32_t>(std::lround(v * 2147483647.0)));
    case Encoding::Float32: return put(static_cast<float>(v));
    case Encoding::Float64: return put(v);
    }
}

std::vector<int16_t> convert(SampleConverter& c, const std::vector<unsigned char>& bytes, size_t chunk) {
    std::vector<int16_t> out;
    for (size_t at = 0; at < bytes.size(); at += chunk, chunk = chunk * 7 % 1013 + 1)
        EXPECT_TRUE(c.push(bytes.data() + at, std::min(chunk, bytes.size() - at), out)) << c.error();
    EXPECT_TRUE(c.finish(out));
    return out;
}

// Half a second of 440 Hz at half scale; channels carry opposite offsets that the
// average cancels. Fed whole, in odd chunks that split frames, and again after a
// reset, it gives the same samples, and they are that tone sampled at 14039 Hz.
TEST(SampleConverter, AnyFormatChannelsAndRateGiveTheToneAtTheCaptureRate) {
    const struct {
        Encoding encoding;
        int channels, rate;
        Quality quality;
        int tolerance;
    } cases[] = {
        {Encoding::Float32, 2, 48000, Quality::Medium, 40},  {Encoding::Int16, 1, 44100, Quality::Fastest, 40},
        {Encoding::Int32, 3, 96000, Quality::Fastest, 40},   {Encoding::UInt8, 1, 8000, Quality::Medium, 400},
        {Encoding::Float64, 2, 22050, Quality::Fastest, 40}, {Encoding::Int16, 2, kOut, Quality::Medium, 2},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << static_cast<int>(c.encoding) << " x" << c.channels << " at " << c.rate);
        std::vector<unsigned char> bytes;
        const double offsets[] = {0.2, -0.2, 0.0};
        for (int i = 0; i < c.rate / 2; ++i)
            for (int ch = 0; ch < c.channels; ++ch)
                append(bytes, c.encoding,
                       0.5 * std::sin(2 * std::numbers::pi * 440 * i / c.rate) + (c.channels > 1 ? offsets[ch] : 0));
        SampleConverter converter({c.encoding, c.channels, c.rate}, kOut, c.quality);
        const auto whole = convert(converter, bytes, bytes.size());
        converter.reset();
        EXPECT_EQ(convert(converter, bytes, 1), whole);
        ASSERT_NEAR(static_cast<double>(whole.size()), kOut / 2, 2);
        long worst = 0;
        for (size_t i = 200; i + 200 < whole.size(); ++i)
            worst = std::max(worst,
                             std::abs(whole[i] - std::lround(16384 * std::sin(2 * std::numbers::pi * 440 * i / kOut))));
        EXPECT_LE(worst, c.tolerance);
    }
}

TEST(SampleConverter, OutOfRangeFloatsClipAndRatesOutOfReachAreRefused) {
    std::vector<unsigned char> bytes;
    for (double v : {1.5, -1.5, 0.25, std::numeric_limits<double>::quiet_NaN(), -HUGE_VAL})
        append(bytes, Encoding::Float32, v);
    SampleConverter converter({Encoding::Float32, 1, kOut}, kOut, Quality::Fastest);
    EXPECT_EQ(convert(converter, bytes, 3), (std::vector<int16_t>{32767, -32768, 8192, 0, -32768}));

    std::vector<int16_t> out;
    for (const SampleConverter::Input bad :
         {SampleConverter::Input{Encoding::Int16, 0, 48000}, {Encoding::Int16, 1, 10}}) {
        SampleConverter refused(bad, kOut, Quality::Fastest);
        EXPECT_FALSE(refused.error().empty());
        EXPECT_FALSE(refused.push(bytes.data(), bytes.size(), out));
    }
    EXPECT_TRUE(out.empty());
}

} // namespace
} // namespace uke
