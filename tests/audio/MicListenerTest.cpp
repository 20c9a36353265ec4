// The listener's capture queue, its states and its level meter.
#include <cmath>
#include <set>
#include <vector>

#include <gtest/gtest.h>

#include "audio/MicListener.h"
#include "platform/virtual/Fakes.h"
#include "support/SyntheticPluck.h"

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
    // Takes the oldest enqueued buffer out, as the queue does when it fills one.
    int takeBuffer() {
        const int id = enqueued.front();
        enqueued.erase(enqueued.begin());
        return id;
    }
    Callback tap;
    int opens = 0, stops = 0, disposals = 0;
};

class Listener : public ::testing::Test {
protected:
    void SetUp() override {
        MicListener::configure(capture, log);
        listener = MicListener::sharedListener();
        ASSERT_NE(listener, nullptr);
    }
    TappedCapture capture;
    RecordingLog log;
    MicListener* listener = nullptr;
};

TEST_F(Listener, IsOneInstanceForTheProcess) {
    EXPECT_EQ(MicListener::sharedListener(), listener);
    EXPECT_EQ(MicListener::allocate(), nullptr);
    EXPECT_EQ(MicListener::sharedListener(), listener);
}

TEST_F(Listener, BeforeListenNothingIsRead) {
    EXPECT_FALSE(listener->isListening());
    EXPECT_EQ(listener->averagePower(), 0.0f);
    EXPECT_EQ(listener->peakPower(), 0.0f);
    EXPECT_EQ(listener->levels(), nullptr);
    EXPECT_EQ(listener->frequency(), 0.0f);
    EXPECT_EQ(capture.opens, 0);
}

TEST_F(Listener, ListenOpensA14039HzMonoQueueWithThreeBuffers) {
    listener->listen();
    EXPECT_TRUE(listener->isListening());
    EXPECT_EQ(capture.format.sampleRate, 14039.0);
    EXPECT_EQ(capture.format.channels, 1u);
    EXPECT_EQ(capture.format.bitsPerChannel, 16u);
    ASSERT_EQ(capture.bufferSizes.size(), 3u);
    for (const auto& [id, bytes] : capture.bufferSizes)
        EXPECT_EQ(bytes, 8192u);
    EXPECT_EQ(capture.enqueued.size(), 3u);
    EXPECT_EQ(capture.startCount, 1);
    EXPECT_EQ(log.lines, std::vector<std::string>{"AudioQueueSetProperty error: 0"});
}

TEST_F(Listener, EachDeliveredBufferIsStoredAndEnqueuedAgain) {
    listener->listen();
    const auto first = capture.enqueued.front();
    ASSERT_TRUE(capture.deliver(test::syntheticPluck(392.0, 14039.0, 4096)));
    EXPECT_EQ(capture.enqueued.size(), 3u);
    EXPECT_EQ(capture.enqueued.back(), first);
    EXPECT_NEAR(listener->frequency(), 392.0, 0.43);
    for (int i = 0; i < 10; ++i)
        ASSERT_TRUE(capture.deliver(std::vector<int16_t>(4096, 5)));
    EXPECT_EQ(capture.bufferSizes.size(), 3u);
}

TEST_F(Listener, LevelIsRmsAndPeakOfTheLatestBlockOnALinearScale) {
    listener->listen();
    std::vector<int16_t> block(4096);
    for (size_t i = 0; i < block.size(); ++i)
        block[i] = (i % 2) ? 8192 : -8192;
    block[100] = -16384;
    ASSERT_TRUE(capture.deliver(block));
    const double rms = std::sqrt((4095.0 * 8192.0 * 8192.0 + 16384.0 * 16384.0) / 4096.0) / 32768.0;
    EXPECT_FLOAT_EQ(listener->averagePower(), static_cast<float>(rms));
    EXPECT_FLOAT_EQ(listener->peakPower(), 0.5f);
    const LevelMeterState* levels = listener->levels();
    ASSERT_NE(levels, nullptr);
    EXPECT_EQ(levels[0].mAveragePower, listener->averagePower());

    ASSERT_TRUE(capture.deliver(std::vector<int16_t>(4096, -32768)));
    EXPECT_EQ(listener->averagePower(), 1.0f);
    EXPECT_EQ(listener->peakPower(), 1.0f);
    ASSERT_TRUE(capture.deliver(std::vector<int16_t>(4096, 0)));
    EXPECT_EQ(listener->averagePower(), 0.0f);
    EXPECT_EQ(listener->peakPower(), 0.0f);
}

TEST_F(Listener, ShortBlockIsMeteredOverItsOwnLength) {
    listener->listen();
    ASSERT_TRUE(capture.deliver(std::vector<int16_t>(1000, 3276)));
    EXPECT_NEAR(listener->averagePower(), 3276.0 / 32768.0, 1e-7);
}

TEST_F(Listener, PauseKeepsTheQueueAndReadsZero) {
    listener->listen();
    ASSERT_TRUE(capture.deliver(test::syntheticPluck(440.0, 14039.0, 4096)));
    listener->pause();
    EXPECT_FALSE(listener->isListening());
    EXPECT_TRUE(capture.exists);
    EXPECT_EQ(listener->averagePower(), 0.0f);
    EXPECT_EQ(listener->levels(), nullptr);
    // The last stored buffer still gives its estimate.
    EXPECT_NEAR(listener->frequency(), 440.0, 0.43);

    listener->pause();
    EXPECT_EQ(capture.stops, 1);
}

TEST_F(Listener, PauseWhenNotListeningDoesNothing) {
    listener->pause();
    EXPECT_EQ(capture.stops, 0);
    EXPECT_EQ(capture.opens, 0);
}

TEST_F(Listener, BufferReturnedWhilePausedLeavesCirculation) {
    listener->listen();
    const auto pluck = test::syntheticPluck(440.0, 14039.0, 4096);
    const int id = capture.takeBuffer();
    listener->pause();
    capture.tap(id, pluck.data(), 8192);
    EXPECT_EQ(capture.enqueued.size(), 2u);
    EXPECT_EQ(listener->frequency(), 0.0f); // not stored either

    // Listening again restarts the same queue without enqueuing anew.
    listener->listen();
    EXPECT_TRUE(listener->isListening());
    EXPECT_EQ(capture.opens, 1);
    EXPECT_EQ(capture.startCount, 2);
    EXPECT_EQ(capture.bufferSizes.size(), 3u);
    EXPECT_EQ(capture.enqueued.size(), 2u);
    EXPECT_EQ(listener->averagePower(), 0.0f);
}

TEST_F(Listener, StopDisposesAndListenMakesAFreshQueue) {
    listener->listen();
    const std::set<int> old{capture.enqueued.begin(), capture.enqueued.end()};
    listener->stop();
    EXPECT_EQ(capture.disposals, 1);
    EXPECT_FALSE(listener->isListening());
    listener->stop();
    EXPECT_EQ(capture.disposals, 1);

    listener->listen();
    EXPECT_TRUE(listener->isListening());
    EXPECT_EQ(capture.opens, 2);
    ASSERT_EQ(capture.enqueued.size(), 3u);
    for (int id : capture.enqueued) {
        EXPECT_FALSE(old.count(id)) << "buffer " << id << " was reused";
        EXPECT_EQ(capture.bufferSizes[id], 8192u);
    }
    EXPECT_EQ(log.count("AudioQueueSetProperty error: 0"), 2u);
}

TEST_F(Listener, MissingInputIsLoggedAndGivesNoReadings) {
    capture.failToOpen = true;
    capture.error = "no audio input device";
    listener->listen();
    EXPECT_TRUE(log.contains("Error creating session: no audio input device"));
    EXPECT_FALSE(listener->isListening());
    EXPECT_EQ(capture.startCount, 0);
    EXPECT_EQ(listener->averagePower(), 0.0f);
    EXPECT_EQ(listener->frequency(), 0.0f);
    listener->stop();
    EXPECT_EQ(capture.disposals, 0);
}

} // namespace
} // namespace uke
