// The spectrum-based pitch estimate: transform, harmonic sum, strongest bin. What
// it finds in every committed recording is pinned by the tool's golden outputs.
#include <algorithm>
#include <cmath>
#include <random>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "audio/PitchEstimator.h"

namespace uke {
namespace {

constexpr double kRate = 14039.0;
constexpr int kBins = PitchEstimator::kBins;

class PitchEstimate : public ::testing::Test {
protected:
    std::vector<double> spectrum() { return {estimator.freq_db(), estimator.freq_db() + kBins}; }
    PitchEstimator estimator{kRate};
};

TEST_F(PitchEstimate, MagnitudesAreRawTransformValuesOver16384) {
    // Silence is flat 0; an unwindowed impulse of 16384 is flat 1.0.
    for (const auto& [height, magnitude] : {std::pair{0, 0.0}, std::pair{16384, 1.0}}) {
        std::vector<int16_t> block(4096, 0);
        block[0] = static_cast<int16_t>(height);
        const float hertz = estimator.estimate(block.data(), 8192);
        const auto s = spectrum();
        EXPECT_TRUE(std::all_of(s.begin(), s.end(), [&](double v) { return v == magnitude; })) << height;
        EXPECT_EQ(hertz, 0.0f) << height; // flat spectra peak first at bin 0
    }
}

TEST_F(PitchEstimate, EachEstimateStartsFromClearedArraysAndDropsAnOddByte) {
    std::mt19937 random(7);
    std::uniform_int_distribution<int> noise(-20000, 20000);
    std::vector<int16_t> samples(4096);
    for (auto& s : samples)
        s = static_cast<int16_t>(noise(random));
    const float first = estimator.estimate(samples.data(), 8190);
    const auto of4095 = spectrum();
    estimator.estimate(samples.data(), 8192);
    ASSERT_NE(spectrum(), of4095);
    EXPECT_EQ(estimator.estimate(samples.data(), 8191), first);
    EXPECT_EQ(spectrum(), of4095);
}

struct HarmonicCase {
    const char* name;
    double fill;
    std::vector<std::pair<int, double>> in, out;
};

TEST_F(PitchEstimate, HarmonicSum) {
    const HarmonicCase cases[] = {
        // A group adds only the whole part of its largest magnitude, nothing below 1.0.
        {"WholePartOfTheLargest",
         0.0,
         {{600, 0.99}, {400, 2.9}, {399, 2.5}},
         {{300, 0.0}, {200, 2.0}, {133, 2.0}, {600, 0.99}, {400, 2.9}}},
        // Bin i joins group round(i / h), halves away from zero: {0}, {1, 2}, ... for
        // h = 2 and {0, 1}, {2, 3, 4}, ... for h = 3.
        {"GroupsByRoundedQuotient",
         0.0,
         {{1, 7.5}, {3, 4.0}, {4, 9.0}, {299, 3.0}},
         {{0, 7.0}, {1, 7.5 + 7.0 + 9.0}, {2, 9.0}, {3, 4.0}, {150, 3.0}, {149, 0.0}, {100, 3.0}, {99, 0.0}}},
        {"TopGroupOfEachPassNeverAdded",
         5.0,
         {},
         {{5460, 15.0}, {5461, 10.0}, {8191, 10.0}, {8192, 5.0}, {16383, 5.0}}},
    };
    for (const auto& c : cases) {
        std::fill_n(estimator.freq_db(), kBins, c.fill);
        for (const auto& [bin, v] : c.in)
            estimator.freq_db()[bin] = v;
        estimator.addHarmonics();
        for (const auto& [bin, v] : c.out)
            EXPECT_EQ(estimator.freq_db_harmonic()[bin], v) << c.name << " bin " << bin;
    }
}

TEST_F(PitchEstimate, TopSpikeIsTheFirstOfEqualMaxima) {
    double* h = estimator.freq_db_harmonic();
    EXPECT_EQ(estimator.findTopSpike(), 0u);
    h[705] = h[700] = h[300] = 9.0; // the first, wherever the later ones fall
    h[900] = 8.0;
    EXPECT_EQ(estimator.findTopSpike(), 300u);
}

// The window's values over whole blocks are in every golden estimate; here the
// truncation of a windowed sample and a window of one sample.
TEST_F(PitchEstimate, WindowTruncatesAndAOneSampleWindowIsZero) {
    std::vector<int16_t> samples{999, 999, 999, 999, -999};
    PitchEstimator::performWindow(samples.data(), 5);
    EXPECT_EQ(samples, (std::vector<int16_t>{79, 539, 999, 539, -79}));
    int16_t one = 999; // a one-sample window is NaN, stored as 0
    PitchEstimator::performWindow(&one, 1);
    EXPECT_EQ(one, 0);
}

} // namespace
} // namespace uke
