// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
// The listener: its capture queue's states, its level meter, and its estimate of
// the stored buffer.
#include <map>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "audio/MicListener.h"
#include "audio/PitchEstimator.h"
#include "platform/virtual/Fakes.h"
#include "support/SyntheticPluck.h"
#include <algorithm>
#include <random>
#include <utility>

namespace uke {
namespace {

// The fake queue, with a tap on the callback so that a buffer can be handed back
// the way the real queue does it after a stop.
class TappedCapture : public FakeAudioCapture {
public:
    bool newInput(const Format& f, Callback callback) override {
        ++opens;
        tap = callback;
        return FakeAudioCapture::newInput(f, std::move(callback));
    }
    void stop() override {
        ++stops;
        FakeAudioCapture::stop();
    }
    void dispose() override {
        ++disposals;
        FakeAudioCapture::dispose();
    }
    Callback tap;
    int opens = 0, stops = 0, disposals = 0;
};

class Listener : public ::testing::Test {
protected:
    TappedCapture capture;
    RecordingLog log;
    MicListener::Attachment attached{capture, log};
    MicListener* listener = MicListener::sharedListener();
    const std::vector<int16_t> a4 = test::syntheticPluck(1027 * 14039.0 / 32768.0, 14039.0, 4096);
};

TEST_F(Listener, ListenOpensA14039HzMonoQueueOfThree8192ByteBuffers) {
    EXPECT_EQ(MicListener::allocate(), nullptr); // one instance per process
    listener->getFreqFromBuffer(a4.data(), 8192);
    // Nothing stored yet: 0 Hz, without running the transform over the last spectrum.
    EXPECT_EQ(listener->frequency(), 0.0f);
    EXPECT_GT(listener->freq_db()[1027], 1.0);
    listener->listen();
    EXPECT_EQ(capture.format.sampleRate, 14039.0);
    EXPECT_EQ(capture.format.channels * 100 + capture.format.bitsPerChannel, 116u);
    EXPECT_EQ(capture.bufferSizes, (std::map<int, uint32_t>{{1, 8192}, {2, 8192}, {3, 8192}}));
    // A delivered buffer is stored and estimated on its bin (enqueued again: the queue states).
    ASSERT_TRUE(capture.deliver(a4));
    EXPECT_EQ(listener->frequency(), listener->frequencyOfBin(1027));
    // A block is estimated once: asking again reads the kept value, not the spectra.
    const std::vector<int16_t> silence(4096);
    listener->performFFT(silence.data(), 4096);
    EXPECT_EQ(listener->frequency(), listener->frequencyOfBin(1027));
    EXPECT_EQ(listener->freq_db()[1027], 0.0);
    ASSERT_TRUE(capture.deliver(silence));
    EXPECT_EQ(listener->frequency(), 0.0f) << "a new block is estimated afresh";
}

// One step of a scenario, and the state after it.
struct Step {
    const char* op; // listen, pause, stop, deliver, take (the port fills a buffer), give (hands it back)
    bool listening;
    int opens, starts, stops, disposals;
    std::vector<int> enqueued;
    bool stored; // the estimate reads the pluck
};

TEST_F(Listener, QueueStates) {
    const std::vector<std::pair<const char*, std::vector<Step>>> scenarios = {
        {"PauseKeepsTheQueueAndItsLastBuffer",
         {{"pause", false, 0, 0, 0, 0, {}, false},
          {"listen", true, 1, 1, 0, 0, {1, 2, 3}, false},
          {"deliver", true, 1, 1, 0, 0, {2, 3, 1}, true},
          {"pause", false, 1, 1, 1, 0, {2, 3, 1}, true},
          {"pause", false, 1, 1, 1, 0, {2, 3, 1}, true},
          {"listen", true, 1, 2, 1, 0, {2, 3, 1}, true}}},
        // A buffer that comes back while not listening leaves circulation, unstored.
        {"BufferBackWhilePausedLeavesCirculation",
         {{"listen", true, 1, 1, 0, 0, {1, 2, 3}, false},
          {"take", true, 1, 1, 0, 0, {2, 3}, false},
          {"pause", false, 1, 1, 1, 0, {2, 3}, false},
          {"give", false, 1, 1, 1, 0, {2, 3}, false},
          {"listen", true, 1, 2, 1, 0, {2, 3}, false}}},
        {"StopDisposesAndListenMakesFreshBuffers",
         {{"stop", false, 0, 0, 0, 0, {}, false},
          {"listen", true, 1, 1, 0, 0, {1, 2, 3}, false},
          {"stop", false, 1, 1, 0, 1, {}, false},
          {"stop", false, 1, 1, 0, 1, {}, false},
          {"listen", true, 2, 2, 0, 1, {4, 5, 6}, false}}},
    };
    for (const auto& [name, steps] : scenarios) {
        TappedCapture port;
        MicListener::Attachment attachedHere(port, log);
        int taken = 0;
        for (const Step& s : steps) {
            const std::string op = s.op;
            if (op == "listen")
                listener->listen();
            else if (op == "pause")
                listener->pause();
            else if (op == "stop")
                listener->stop();
            else if (op == "deliver")
                ASSERT_TRUE(port.deliver(a4));
            else if (op == "take") {
                taken = port.enqueued.front();
                port.enqueued.erase(port.enqueued.begin());
            } else if (op == "give")
                port.tap(taken, a4.data(), 8192);
            const std::string at = std::string(name) + " after " + op;
            EXPECT_EQ(listener->isListening(), s.listening) << at;
            EXPECT_EQ((std::vector{port.opens, port.startCount, port.stops, port.disposals}),
                      (std::vector{s.opens, s.starts, s.stops, s.disposals}))
                << at;
            EXPECT_EQ(port.enqueued, s.enqueued) << at;
            EXPECT_EQ(listener->frequency() != 0.0f, s.stored) << at;
        }
    }
}

// The levels of every block of the committed recordings, the short last ones too,
// are in the tool's golden outputs; here full scale, silence and a pause.
TEST_F(Listener, LevelIsRmsAndPeakOfTheLatestBlock) {
    listener->listen();
    for (const auto& [sample, level] : {std::pair{int16_t{-32768}, 1.0f}, {int16_t{0}, 0.0f}}) {
        ASSERT_TRUE(capture.deliver(std::vector<int16_t>(4096, sample)));
        EXPECT_FLOAT_EQ(listener->averagePower(), level) << sample;
        EXPECT_FLOAT_EQ(listener->peakPower(), level) << sample;
        EXPECT_EQ(listener->levels()[0].mAveragePower, listener->averagePower());
    }
    listener->pause();
    EXPECT_EQ(listener->levels(), nullptr);
    EXPECT_EQ(listener->averagePower(), 0.0f);
}

// A missing input is said once and gives no readings: the end-to-end test of a
// machine without a sound server.

TEST_F(Listener, ConfiguringAgainForgetsTheOldQueueAndDetachDisposesOnlyItsOwn) {
    listener->listen();
    TappedCapture next;
    MicListener::configure(next, log);
    capture.tap(1, a4.data(), 8192);
    EXPECT_EQ(capture.enqueued, (std::vector<int>{1, 2, 3})); // not enqueued again, nor stored
    EXPECT_EQ(capture.stops + capture.disposals + (listener->frequency() != 0.0f), 0);
    listener->listen();
    MicListener::detach(capture); // no longer the listener's port
    EXPECT_EQ(capture.disposals, 0);
    EXPECT_TRUE(listener->isListening());
    MicListener::detach(next);
    EXPECT_EQ(next.disposals, 1);
    listener->listen(); // no port any more
    EXPECT_EQ(next.opens, 1);
    EXPECT_FALSE(listener->isListening());
}

// The spectrum-based pitch estimate: transform, harmonic sum, strongest bin. What
// it finds in every committed recording is pinned by the tool's golden outputs.
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
