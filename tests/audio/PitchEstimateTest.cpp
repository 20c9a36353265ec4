// The spectrum-based pitch estimate: transform, harmonic sum, strongest bin.
#include <algorithm>
#include <cmath>
#include <random>
#include <vector>

#include <gtest/gtest.h>

#include "audio/MicListener.h"
#include "platform/virtual/Fakes.h"
#include "support/SyntheticPluck.h"

namespace uke {
namespace {

constexpr double kHertzPerBin = 14039.0 / 32768.0;

class PitchEstimate : public ::testing::Test {
protected:
    void SetUp() override {
        MicListener::configure(capture, log);
        listener = MicListener::sharedListener();
        ASSERT_NE(listener, nullptr);
    }
    void clearSpectra() {
        std::fill_n(listener->freq_db(), MicListener::kBins, 0.0);
        std::fill_n(listener->freq_db_harmonic(), MicListener::kBins, 0.0);
    }
    std::vector<double> spectrum() const { return {listener->freq_db(), listener->freq_db() + MicListener::kBins}; }

    FakeAudioCapture capture;
    RecordingLog log;
    MicListener* listener = nullptr;
};

TEST_F(PitchEstimate, BinsConvertToTheirOwnFrequencyWithoutInterpolation) {
    EXPECT_EQ(listener->frequencyOfBin(0), 0.0f);
    EXPECT_NEAR(listener->frequencyOfBin(1), 0.428436, 1e-6);
    EXPECT_NEAR(listener->frequencyOfBin(1027), 440.004, 1e-3);
    EXPECT_NEAR(listener->frequencyOfBin(16383), 7019.07, 1e-2);
    // Rounded once, to float, from the double product.
    EXPECT_EQ(listener->frequencyOfBin(1027), static_cast<float>(1027.0 * 14039.0 / 32768.0));
}

TEST_F(PitchEstimate, PluckedStringsLandOnTheirFundamentalBin) {
    for (const double hertz : {196.0, 261.63, 293.66, 329.63, 392.0, 440.0, 493.88}) {
        const auto pluck = test::syntheticPluck(hertz, 14039.0, 4096);
        const float estimate = listener->getFreqFromBuffer(pluck.data(), 8192);
        const long expectedBin = std::lround(hertz / kHertzPerBin);
        EXPECT_NEAR(estimate / kHertzPerBin, static_cast<double>(expectedBin), 1.0001) << hertz << " Hz";
    }
}

TEST_F(PitchEstimate, A4OnBin1027ReadsItsBinFrequencyThroughTheCapturePath) {
    listener->listen();
    const auto pluck = test::syntheticPluck(1027 * kHertzPerBin, 14039.0, 4096);
    ASSERT_TRUE(capture.deliver(pluck));
    EXPECT_EQ(listener->frequency(), listener->frequencyOfBin(1027));
    EXPECT_NEAR(listener->frequency(), 440.004, 1e-3);
}

TEST_F(PitchEstimate, NoBufferGivesZeroWithoutRunningTheTransform) {
    const auto pluck = test::syntheticPluck(440.0, 14039.0, 4096);
    listener->getFreqFromBuffer(pluck.data(), 8192);
    const auto before = spectrum();
    EXPECT_EQ(listener->frequency(), 0.0f);
    EXPECT_EQ(spectrum(), before); // still the last estimate's spectrum
}

TEST_F(PitchEstimate, SilenceGivesBinZero) {
    const std::vector<int16_t> silence(4096, 0);
    listener->setAudioBuffer(silence.data(), 8192);
    EXPECT_EQ(listener->frequency(), 0.0f);
    const auto s = spectrum();
    EXPECT_TRUE(std::all_of(s.begin(), s.end(), [](double v) { return v == 0.0; }));
}

TEST_F(PitchEstimate, EachEstimateStartsFromClearedArrays) {
    const auto pluck = test::syntheticPluck(329.63, 14039.0, 4096);
    const float first = listener->getFreqFromBuffer(pluck.data(), 8192);
    const auto firstSpectrum = spectrum();
    const auto other = test::syntheticPluck(196.0, 14039.0, 4096);
    listener->getFreqFromBuffer(other.data(), 8192);
    EXPECT_EQ(listener->getFreqFromBuffer(pluck.data(), 8192), first);
    EXPECT_EQ(spectrum(), firstSpectrum);
}

TEST_F(PitchEstimate, OddByteLengthDropsItsLastByte) {
    std::mt19937 random(7);
    std::uniform_int_distribution<int> noise(-20000, 20000);
    std::vector<int16_t> samples(4096);
    for (auto& s : samples)
        s = static_cast<int16_t>(noise(random));

    listener->getFreqFromBuffer(samples.data(), 8190);
    const auto of4095 = spectrum();
    listener->getFreqFromBuffer(samples.data(), 8192);
    const auto of4096 = spectrum();
    ASSERT_NE(of4095, of4096);

    listener->setAudioBuffer(samples.data(), 8191);
    listener->frequency();
    EXPECT_EQ(spectrum(), of4095);
}

TEST_F(PitchEstimate, MagnitudesAreUnscaledTransformValuesOver16384) {
    // A unit impulse of height 16384 has a flat transform of 16384: magnitude 1.0.
    std::vector<int16_t> impulse(4096, 0);
    impulse[0] = 16384;
    listener->getFreqFromBuffer(impulse.data(), 8192);
    const auto s = spectrum();
    EXPECT_TRUE(std::all_of(s.begin(), s.end(), [](double v) { return v == 1.0; }));
    // Samples are not windowed: a window would have zeroed the first sample.
}

TEST_F(PitchEstimate, HarmonicGroupsAddOnlyTheWholePartOfTheirLargestMagnitude) {
    clearSpectra();
    double* db = listener->freq_db();
    db[600] = 0.99; // would reach bins 300 (x2) and 200 (x3)
    db[400] = 2.9;  // bins 200 (x2) and 133 (x3)
    db[399] = 2.5;  // same x2 group as 400, smaller
    listener->addHarmonics();
    const double* h = listener->freq_db_harmonic();
    EXPECT_EQ(h[300], 0.0);
    EXPECT_EQ(h[200], 2.0);
    EXPECT_EQ(h[133], 2.0);
    EXPECT_EQ(h[600], 0.99);
    EXPECT_EQ(h[400], 2.9);
}

TEST_F(PitchEstimate, HarmonicGroupsGatherNeighbouringBinsByRoundedQuotient) {
    // Bin i joins the group of round(i / h), halves away from zero: for h = 2 the
    // groups are {0}, {1, 2}, {3, 4}, ...; for h = 3 they are {0, 1}, {2, 3, 4}, ...
    clearSpectra();
    double* db = listener->freq_db();
    db[1] = 7.5;
    db[3] = 4.0;
    db[4] = 9.0;
    db[299] = 3.0; // 149.5 rounds to 150, 99.67 to 100
    listener->addHarmonics();
    const double* h = listener->freq_db_harmonic();
    EXPECT_EQ(h[0], 7.0);             // x3 group {0, 1}
    EXPECT_EQ(h[1], 7.5 + 7.0 + 9.0); // own, x2 group {1, 2}, x3 group {2, 3, 4}
    EXPECT_EQ(h[2], 9.0);             // x2 group {3, 4}
    EXPECT_EQ(h[3], 4.0);
    EXPECT_EQ(h[150], 3.0);
    EXPECT_EQ(h[149], 0.0);
    EXPECT_EQ(h[100], 3.0);
    EXPECT_EQ(h[99], 0.0);
}

TEST_F(PitchEstimate, TopGroupOfEachPassIsNeverAdded) {
    double* db = listener->freq_db();
    std::fill_n(db, MicListener::kBins, 5.0);
    listener->addHarmonics();
    const double* h = listener->freq_db_harmonic();
    EXPECT_EQ(h[5460], 15.0);
    EXPECT_EQ(h[5461], 10.0); // lacks its factor-3 term
    EXPECT_EQ(h[8191], 10.0);
    EXPECT_EQ(h[8192], db[8192]);
    EXPECT_EQ(h[16383], 5.0);
}

TEST_F(PitchEstimate, TopSpikeIsTheFirstOfEqualMaxima) {
    clearSpectra();
    double* h = listener->freq_db_harmonic();
    h[700] = 9.0;
    h[300] = 9.0;
    h[900] = 8.0;
    EXPECT_EQ(listener->findTopSpike(), 300u);
    clearSpectra();
    EXPECT_EQ(listener->findTopSpike(), 0u);
}

TEST_F(PitchEstimate, HammingWindowKeepsItsRoundedConstant) {
    EXPECT_DOUBLE_EQ(listener->hamming_window(0, 4096), 0.08);
    EXPECT_NEAR(listener->hamming_window(4095, 4096), 0.08, 1e-9);
    EXPECT_DOUBLE_EQ(listener->hamming_window(2, 5), 1.0);
    EXPECT_EQ(listener->hamming_window(1, 5), 0.54 + (-0.46) * std::cos((6.283185308 / 4) * 1));
    EXPECT_TRUE(std::isnan(listener->hamming_window(0, 1)));
}

TEST_F(PitchEstimate, WindowTruncatesTowardZero) {
    std::vector<int16_t> samples{999, 999, 999, 999, -999};
    listener->performWindow(samples.data(), 5);
    EXPECT_EQ(samples, (std::vector<int16_t>{79, 539, 999, 539, -79}));
}

} // namespace
} // namespace uke
