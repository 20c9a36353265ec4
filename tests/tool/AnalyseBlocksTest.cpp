// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
// Recordings read for analysis; what `uke analyse` prints of them is pinned by the
// tool's golden outputs, the committed recordings resampled from 44.1 kHz among
// them (how closely the converter keeps a tone is its own test's).
#include <cstdlib>
#include <filesystem>
#include <optional>
#include <tuple>

#include <gtest/gtest.h>
#include <sndfile.h>

#include "AudioFile.h"

namespace uke::tool {
namespace {

namespace fs = std::filesystem;

class Recordings : public ::testing::Test {
protected:
    void SetUp() override {
        char pattern[] = "/tmp/uke-analyse-XXXXXX";
        ASSERT_NE(::mkdtemp(pattern), nullptr);
        dir = pattern;
    }
    void TearDown() override { fs::remove_all(dir); }

    // Frames interleaved; format a libsndfile major | minor pair.
    template <class T>
    std::string write(const std::string& name, const std::vector<T>& frames, int rate, int channels,
                      int format = SF_FORMAT_WAV | SF_FORMAT_PCM_16) {
        const std::string path = (dir / name).string();
        SF_INFO info{};
        info.samplerate = rate;
        info.channels = channels;
        info.format = format;
        SNDFILE* f = sf_open(path.c_str(), SFM_WRITE, &info);
        EXPECT_NE(f, nullptr) << sf_strerror(nullptr);
        if (!f)
            return path;
        if constexpr (std::is_same_v<T, int16_t>)
            sf_writef_short(f, frames.data(), static_cast<sf_count_t>(frames.size() / channels));
        else
            sf_writef_float(f, frames.data(), static_cast<sf_count_t>(frames.size() / channels));
        sf_close(f);
        return path;
    }
    // Every sample of the recording, the blocks' lengths in `sizes`; nothing, with
    // `error` set, when it is refused, at once or part-way.
    std::optional<std::vector<int16_t>> read(const std::string& path, double longest = AudioFile::kLongestSeconds) {
        AudioFile audio(path, longest);
        std::vector<int16_t> samples, block;
        sizes.clear();
        while (audio.next(block)) {
            samples.insert(samples.end(), block.begin(), block.end());
            sizes.push_back(block.size());
        }
        error = audio.error();
        return error.empty() ? std::optional(samples) : std::nullopt;
    }

    fs::path dir;
    std::string error;
    std::vector<size_t> sizes;
};

TEST_F(Recordings, CaptureFormatPassesUnchangedAndIsCutIntoBlocks) {
    std::vector<int16_t> samples(10000);
    for (size_t i = 0; i < samples.size(); ++i)
        samples[i] = static_cast<int16_t>((i * 7919) % 65536 - 32768);
    const auto audio = read(write("capture.wav", samples, 14039, 1));
    ASSERT_TRUE(audio) << error;
    EXPECT_EQ(*audio, samples);
    EXPECT_EQ(sizes, (std::vector<size_t>{4096, 4096, 1808}));
}

TEST_F(Recordings, ChannelsAreAveragedAndValuesRoundedAndClipped) {
    const auto stereo = read(write("stereo.wav", std::vector<int16_t>{1000, 3000, -7, -8, 32767, 32767}, 14039, 2));
    ASSERT_TRUE(stereo) << error;
    EXPECT_EQ(*stereo, (std::vector<int16_t>{2000, -8, 32767})); // -7.5 rounds away from zero

    const float step = 1.0f / 32768.0f;
    const auto floats = read(write("float.wav", std::vector<float>{1.5f, -1.5f, 100.4f * step, -100.6f * step}, 14039,
                                   1, SF_FORMAT_WAV | SF_FORMAT_FLOAT));
    ASSERT_TRUE(floats) << error;
    EXPECT_EQ(*floats, (std::vector<int16_t>{32767, -32768, 100, -101}));
}

// A missing, empty, folder or text file and damaged ones: the golden analyse outputs.
// The length limit holds on what is decoded: reading stops there, part-way.
TEST_F(Recordings, BadFilesGiveOneLineReasons) {
    const std::string twoSeconds = write("two-seconds.wav", std::vector<int16_t>(2 * 14039), 14039, 1);
    const std::tuple<std::string, double, std::string> cases[] = {
        {write("silent.wav", std::vector<int16_t>{}, 14039, 1), AudioFile::kLongestSeconds, "holds no audio"},
        {twoSeconds, 1.5, "too long to analyse: more than 1.5 seconds"},
    };
    for (const auto& [path, longest, reason] : cases) {
        EXPECT_FALSE(read(path, longest)) << path;
        EXPECT_NE(error.find(reason), std::string::npos) << error;
        EXPECT_EQ(error.find('\n'), std::string::npos) << error;
    }
    EXPECT_TRUE(read(twoSeconds, 2.5)) << error;
}

} // namespace
} // namespace uke::tool
