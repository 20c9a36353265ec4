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

TEST_F(ToneCommand, StringOfATuningIsTheAppsToneSampleForSample) {
    const auto wav = dir / "a4.wav";
    ASSERT_EQ(tone({"--tuning", "1", "--string", "1", "--seconds", "0.5", "--out", wav}), 0) << err.str();
    EXPECT_EQ(read(wav), rendered(440.0f, 1, 22050));
    EXPECT_NE(out.str().find("A4 440.0000 Hz triangle, 22050 frames"), std::string::npos) << out.str();
}

TEST_F(ToneCommand, CalibrationAndWaveformChooseTheSignal) {
    const auto wav = dir / "d3.wav";
    // Tuning 11 string 4 is D3: 146.83238 Hz at A4 = 440, so 147.4998 Hz at 442.
    ASSERT_EQ(
        tone({"--tuning", "11", "--string", "4", "--a4", "442", "--wave", "square", "--frames", "3000", "--out", wav}),
        0)
        << err.str();
    EXPECT_NE(out.str().find("D3 147.4998 Hz square"), std::string::npos) << out.str();
    EXPECT_EQ(read(wav), rendered(static_cast<float>(442.0 * 146.83238 / 440.0), 3, 3000));

    const std::pair<const char*, int64_t> waves[] = {{"sine", 0}, {"triangle", 1}, {"sawtooth", 2}, {"square", 3}};
    for (const auto& [name, code] : waves) {
        ASSERT_EQ(tone({"--freq", "1000", "--wave", name, "--frames", "777", "--out", wav}), 0) << err.str();
        EXPECT_EQ(read(wav), rendered(1000.0f, code, 777)) << name;
    }
}

TEST_F(ToneCommand, BadInputIsOneLineAndExitTwo) {
    const std::string wav = dir / "x.wav";
    const std::vector<Words> bad = {
        {"--freq", "440"},                                 // no --out
        {"--tuning", "1", "--out", wav},                   // no string
        {"--string", "2", "--out", wav},                   // no tuning
        {"--tuning", "12", "--string", "1", "--out", wav}, // no such tuning
        {"--tuning", "1", "--string", "5", "--out", wav},  // no such string
        {"--tuning", "1", "--string", "1", "--freq", "440", "--out", wav},
        {"--freq", "440", "--a4", "442", "--out", wav},
        {"--freq", "abc", "--out", wav},
        {"--freq", "-3", "--out", wav},
        {"--freq", "440", "--wave", "noise", "--out", wav},
        {"--freq", "440", "--seconds", "1", "--frames", "10", "--out", wav},
        {"--freq", "440", "--seconds", "0", "--out", wav},
        {"--freq", "440", "--frames", "0", "--out", wav},
        {"--freq", "440", "--out", wav, "extra"},
        {"--freq", "440", "--bogus", "--out", wav},
        {"--freq", "440", "--out", (dir / "missing-dir" / "x.wav").string()},
        {"--freq", "440", "--out", dir.string()},
    };
    for (const auto& words : bad) {
        std::string joined;
        for (const auto& w : words)
            joined += w + " ";
        EXPECT_EQ(tone(words), 2) << joined;
        const std::string e = err.str();
        EXPECT_TRUE(e.rfind("uke tone: ", 0) == 0 && e.find('\n') == e.size() - 1) << joined << "-> " << e;
        EXPECT_TRUE(out.str().empty()) << joined;
    }
    EXPECT_FALSE(fs::exists(wav));
}

} // namespace
} // namespace uke::tool
