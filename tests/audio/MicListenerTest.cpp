// The listener: its capture queue's states, its level meter, and its estimate of
// the stored buffer.
#include <map>
#include <string>
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
    EXPECT_EQ(listener->levels(), nullptr);
    listener->getFreqFromBuffer(a4.data(), 8192);
    // Nothing stored yet: 0 Hz, without running the transform over the last spectrum.
    EXPECT_EQ(listener->frequency(), 0.0f);
    EXPECT_GT(listener->freq_db()[1027], 1.0);
    listener->listen();
    EXPECT_EQ(capture.format.sampleRate, 14039.0);
    EXPECT_EQ(capture.format.channels * 100 + capture.format.bitsPerChannel, 116u);
    EXPECT_EQ(capture.bufferSizes, (std::map<int, uint32_t>{{1, 8192}, {2, 8192}, {3, 8192}}));
    // A delivered buffer is stored, estimated on its bin, and enqueued again.
    ASSERT_TRUE(capture.deliver(a4));
    EXPECT_EQ(capture.enqueued, (std::vector<int>{2, 3, 1}));
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

} // namespace
} // namespace uke
