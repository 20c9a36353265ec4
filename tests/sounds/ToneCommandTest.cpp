// `uke tone`: the app's render step written to a WAV file.
#include <gtest/gtest.h>
#include <sndfile.h>
#include <unistd.h>

#include <filesystem>
#include <sstream>

#include "Commands.h"
#include "sounds/ToneGenerator.h"

namespace uke::tool {
namespace {

namespace fs = std::filesystem;

class ToneCommand : public ::testing::Test {
protected:
    ToneCommand() {
        dir = fs::temp_directory_path() / ("uke-tone-" + std::to_string(::getpid()));
        fs::create_directories(dir);
    }
    ~ToneCommand() override { fs::remove_all(dir); }

    int tone(Words words) {
        words.insert(words.begin(), "tone");
        out.str("");
        err.str("");
        return run(words, out, err);
    }
    // Interleaved samples of a written file; fails the test if the format is off.
    std::vector<int16_t> read(const fs::path& p) {
        SF_INFO info{};
        SNDFILE* f = sf_open(p.c_str(), SFM_READ, &info);
        EXPECT_NE(f, nullptr) << p;
        if (!f)
            return {};
        EXPECT_EQ(info.samplerate, 44100);
        EXPECT_EQ(info.channels, 2);
        EXPECT_EQ(info.format, SF_FORMAT_WAV | SF_FORMAT_PCM_16);
        std::vector<int16_t> v(static_cast<size_t>(info.frames) * 2);
        sf_readf_short(f, v.data(), info.frames);
        sf_close(f);
        return v;
    }
    static std::vector<int16_t> rendered(float hz, int64_t wave, uint32_t frames) {
        ToneGenerator g;
        g.toneFrequency = hz;
        std::atomic<int64_t> curTone{wave};
        std::vector<int16_t> v(frames * 2u);
        g.render(v.data(), frames, curTone);
        return v;
    }

    fs::path dir;
    std::ostringstream out, err;
};

// The printed summaries and every refusal are pinned by the tool's golden outputs.
TEST_F(ToneCommand, WrittenFilesAreTheAppsToneSampleForSample) {
    const auto wav = dir / "tone.wav";
    ASSERT_EQ(tone({"--tuning", "1", "--string", "1", "--seconds", "0.5", "--out", wav}), 0) << err.str();
    EXPECT_EQ(read(wav), rendered(440.0f, 1, 22050));
    // Tuning 11 string 4 is D3: 146.83238 Hz at A4 = 440.
    ASSERT_EQ(
        tone({"--tuning", "11", "--string", "4", "--a4", "442", "--wave", "square", "--frames", "3000", "--out", wav}),
        0)
        << err.str();
    EXPECT_EQ(read(wav), rendered(static_cast<float>(442.0 * 146.83238 / 440.0), 3, 3000));

    const std::pair<const char*, int64_t> waves[] = {{"sine", 0}, {"triangle", 1}, {"sawtooth", 2}, {"square", 3}};
    for (const auto& [name, code] : waves) {
        ASSERT_EQ(tone({"--freq", "1000", "--wave", name, "--frames", "777", "--out", wav}), 0) << err.str();
        EXPECT_EQ(read(wav), rendered(1000.0f, code, 777)) << name;
    }
}

} // namespace
} // namespace uke::tool
