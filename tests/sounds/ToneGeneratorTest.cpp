// The render step against values worked out by hand: frequencies are chosen so that
// the phase lands on exact multiples of pi/4 (5512.5 Hz: an eighth of a cycle per
// frame) and every expected sample follows from a sine table.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <vector>

#include "sounds/ToneGenerator.h"

namespace uke {
namespace {

constexpr double kPi = 3.141592653589793;

struct Tone {
    ToneGenerator gen;
    std::atomic<int64_t> curTone{1};

    explicit Tone(int64_t wave, float hz = 440.0f) {
        curTone = wave;
        gen.toneFrequency = hz;
    }
    // Left channel of the next `frames` frames; checks the right channel matches.
    std::vector<int> next(uint32_t frames) {
        std::vector<int16_t> buf(frames * 2u, 12345);
        gen.render(buf.data(), frames, curTone);
        std::vector<int> left;
        for (uint32_t i = 0; i < frames; ++i) {
            EXPECT_EQ(buf[2 * i], buf[2 * i + 1]) << "frame " << i;
            left.push_back(buf[2 * i]);
        }
        return left;
    }
};

// Truncation toward zero of x times the output scale.
int scaled(double x) { return static_cast<int>(x * 29725.671468948); }

// Unknown waveforms sound as the plain sine.
TEST(ToneGenerator, FreshGeneratorsStartSilentAndTheSinePeaksJustUnder29726) {
    for (int64_t wave : {0, 1, 2, 3, 4, -1, 99}) {
        Tone t(wave);
        const auto v = t.next(44100);
        EXPECT_EQ(v[0], 0) << "wave " << wave;
        if (wave >= 1 && wave <= 3)
            continue;
        const auto [lo, hi] = std::minmax_element(v.begin(), v.end());
        EXPECT_GE(*hi, 29700) << "wave " << wave;
        EXPECT_LE(*hi, 29725) << "wave " << wave;
        EXPECT_LE(*lo, -29700) << "wave " << wave;
        EXPECT_GE(*lo, -29725) << "wave " << wave;
    }
    Tone t(0);
    t.next(1);
    // 440/44100 = 0.0099773 cycles; in single precision the step is 0.06268937515 rad,
    // not the 0.06268937721 rad a double quotient would give.
    EXPECT_NEAR(t.gen.phase(), 0.06268937515, 1e-11);
}

TEST(ToneGenerator, PlainSineFollowsTheSineTableAndKeepsItsPhaseAcrossAPitchChange) {
    Tone t(0, 5512.5f);
    const std::vector<int> want = {0, 21019, 29725, 21019, 0 /* sin(pi) ~ 1e-16 */, -21019, -29725, -21019, 0};
    EXPECT_EQ(t.next(9), want);

    Tone u(0, 5512.5f);
    u.next(3);                      // phase now 3pi/4
    u.gen.toneFrequency = 11025.0f; // a quarter cycle per frame from here on
    // 3pi/4 (the new pitch moves the phase only afterwards), 5pi/4, 7pi/4, 9pi/4 wrapped to pi/4.
    EXPECT_EQ(u.next(4), (std::vector<int>{21019, -21019, -21019, 21019}));
}

TEST(ToneGenerator, SquareIsPositiveUpToAndIncludingPiAndNegativeAfter) {
    Tone t(3, 5512.5f);
    const auto v = t.next(10);
    // Frame n sits at phase n pi/4 and mixes sin with the square of that phase.
    const double h = std::sqrt(0.5);
    const std::vector<int> want = {0,                    // square not yet set
                                   scaled((h + 1) / 2),  // pi/4
                                   scaled(1.0),          // pi/2
                                   scaled((h + 1) / 2),  // 3pi/4
                                   scaled(0.5),          // exactly pi: still +1
                                   scaled((-h - 1) / 2), // 5pi/4
                                   scaled(-1.0),         // 3pi/2
                                   scaled((-h - 1) / 2), // 7pi/4
                                   scaled(-0.5),         // exactly 2pi: not wrapped
                                   scaled((h + 1) / 2)}; // wrapped to pi/4
    ASSERT_EQ(v.size(), want.size());
    for (size_t i = 0; i < want.size(); ++i)
        EXPECT_NEAR(v[i], want[i], 1) << "frame " << i;
    EXPECT_EQ(v[4], 14862);
    EXPECT_EQ(v[8], -14862);
}

TEST(ToneGenerator, TriangleTurnsOnlyPastOneAndFoldsBack) {
    // An eighth of a cycle per frame is a triangle step of 0.5.
    Tone t(1, 5512.5f);
    const std::vector<double> tri = {0.5, 1.0, 0.5, 0.0, -0.5, -1.0, -0.5, 0.0, 0.5};
    const std::vector<float> dir = {1, 1, -1, -1, -1, -1, 1, 1, 1};
    for (size_t i = 0; i < tri.size(); ++i) {
        t.next(1);
        EXPECT_DOUBLE_EQ(t.gen.triangleValue(), tri[i]) << "after frame " << i;
        EXPECT_EQ(t.gen.triangleDirection(), dir[i]) << "after frame " << i;
    }
}

TEST(ToneGenerator, TriangleFoldsBetweenGridPoints) {
    // 4410 Hz: a triangle step of 0.4, so the fold lands between grid points.
    // The triangle heard in frames 1 to 3 is 0.4, 0.8 and, folded back from 1.2, 0.8.
    Tone q(1, 4410.0f);
    const auto v = q.next(4);
    EXPECT_NEAR(v[1], scaled((std::sin(2 * kPi * 0.1) + 0.4) / 2), 1);
    EXPECT_NEAR(v[2], scaled((std::sin(2 * kPi * 0.2) + 0.8) / 2), 1);
    EXPECT_NEAR(v[3], scaled((std::sin(2 * kPi * 0.3) + 0.8) / 2), 1); // folded from 1.2
}

TEST(ToneGenerator, SawtoothRisesAndDropsByTwoPastOne) {
    Tone t(2, 5512.5f);
    const std::vector<double> saw = {0.25, 0.5, 0.75, 1.0, -0.75, -0.5};
    for (size_t i = 0; i < saw.size(); ++i) {
        t.next(1);
        EXPECT_DOUBLE_EQ(t.gen.sawtoothValue(), saw[i]) << "after frame " << i;
    }
    // Frame 5 is at phase 5pi/4 and mixes the sawtooth left at -0.75.
    Tone u(2, 5512.5f);
    EXPECT_NEAR(u.next(6)[5], scaled((-std::sqrt(0.5) - 0.75) / 2), 1);
}

TEST(ToneGenerator, StateCarriesAcrossCallsAndWaveformChanges) {
    Tone whole(1), split(1);
    const auto a = whole.next(1000);
    auto b = split.next(313);
    const auto rest = split.next(687);
    b.insert(b.end(), rest.begin(), rest.end());
    EXPECT_EQ(a, b);

    // The waveform state runs on while the sine alone is heard, so switching back
    // picks up the triangle where it would have been.
    Tone steady(1), swapped(1);
    steady.next(500);
    swapped.next(200);
    swapped.curTone = 0;
    swapped.next(100);
    swapped.curTone = 1;
    swapped.next(200);
    EXPECT_EQ(steady.next(50), swapped.next(50));
}

} // namespace
} // namespace uke
