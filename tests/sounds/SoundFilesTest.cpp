// The committed recordings: one per note a tuning plays, plucked, about two seconds
// and exactly in tune.
#include <gtest/gtest.h>
#include <sndfile.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <set>
#include <string>
#include <vector>

#include "base/StringTargetTable.h"
#include "base/TuningCatalogue.h"
#include "support/FinePitch.h"

namespace uke {
namespace {

namespace fs = std::filesystem;

const fs::path kSounds = fs::path(UKE_SOURCE_DIR) / "resources" / "sounds";

struct Sound {
    int rate = 0;
    std::vector<double> mono; // full scale = 1
    double seconds() const { return static_cast<double>(mono.size()) / rate; }
};

Sound load(const fs::path& path) {
    Sound s;
    SF_INFO info{};
    SNDFILE* f = sf_open(path.c_str(), SFM_READ, &info);
    if (!f) {
        ADD_FAILURE() << path << ": " << sf_strerror(nullptr);
        return s;
    }
    std::vector<double> frames(static_cast<size_t>(info.frames * info.channels));
    const sf_count_t got = sf_readf_double(f, frames.data(), info.frames);
    sf_close(f);
    s.rate = info.samplerate;
    for (sf_count_t i = 0; i < got; ++i) {
        double sum = 0.0;
        for (int c = 0; c < info.channels; ++c)
            sum += frames[static_cast<size_t>(i * info.channels + c)];
        s.mono.push_back(sum / info.channels);
    }
    return s;
}

double rms(const Sound& s, double from, double to) {
    const auto a = static_cast<size_t>(from * s.rate), b = std::min(s.mono.size(), static_cast<size_t>(to * s.rate));
    double sum = 0.0;
    for (size_t i = a; i < b; ++i)
        sum += s.mono[i] * s.mono[i];
    return b > a ? std::sqrt(sum / static_cast<double>(b - a)) : 0.0;
}

// Strongest frequency near `guess` over one second from 0.1 s.
double finePitch(const Sound& s, double guess) {
    const auto start = static_cast<size_t>(0.1 * s.rate);
    const auto n = std::min(static_cast<size_t>(s.rate), s.mono.size() - start);
    return test::finePitch(s.mono.data() + start, n, s.rate, guess);
}

std::string fileOf(Pitch p) { return std::string(pitchFileStem(p)) + ".mp3"; }

TEST(SoundFiles, ExactlyTheSeventeenNotesAndTheBeepAreThere) {
    std::set<std::string> want = {"beep-full.mp3"};
    for (int64_t t = TuningCatalogue::kFirst; t <= TuningCatalogue::kLast; ++t)
        for (Pitch p : TuningCatalogue::tuning(t).strings)
            want.insert(fileOf(p));
    EXPECT_EQ(want.size(), 18u);
    std::set<std::string> have;
    for (const auto& entry : fs::directory_iterator(kSounds))
        if (entry.path().extension() == ".mp3")
            have.insert(entry.path().filename().string());
    EXPECT_EQ(have, want);
}

// What the tuner reads from each recording, block by block, is pinned by the tool's
// golden outputs; this holds the files against an independent, finer measure.
TEST(SoundFiles, RecordingsArePlucksOfAboutTwoSecondsInTuneToAHundredthOfASemitone) {
    StringTargetTable targets;
    targets.recompute(440.0);
    for (size_t i = 0; i < kPitchCount; ++i) {
        const Pitch p = static_cast<Pitch>(i);
        SCOPED_TRACE(fileOf(p));
        const Sound s = load(kSounds / fileOf(p));
        ASSERT_EQ(s.rate, 44100);
        EXPECT_GT(s.seconds(), 1.8);
        EXPECT_LT(s.seconds(), 2.5);
        const double peak = std::abs(*std::max_element(s.mono.begin(), s.mono.end(),
                                                       [](double a, double b) { return std::abs(a) < std::abs(b); }));
        EXPECT_GT(peak, 0.5);
        EXPECT_LT(peak, 0.99); // never clipped
        // Loud at once, fading all the way, and silent at the very end.
        EXPECT_GT(rms(s, 0.0, 0.15), 0.1);
        EXPECT_LT(rms(s, 1.4, 1.7), rms(s, 0.05, 0.35) / 8.0);
        EXPECT_LT(rms(s, s.seconds() - 0.02, s.seconds()), 0.002);
        const double target = targets[p].target;
        const double hz = finePitch(s, target);
        EXPECT_NEAR(1200.0 * std::log2(hz / target), 0.0, 1.0) << "sounds at " << hz << " Hz";
    }
    const Sound beep = load(kSounds / "beep-full.mp3");
    EXPECT_LT(beep.seconds(), 0.6);
    EXPECT_GT(rms(beep, 0.0, 0.2), 0.05);
}

} // namespace
} // namespace uke
