// The listener on the real capture path: a pluck played into a virtual microphone
// comes through QAudioSource in whole 4096-sample blocks, on the capture thread,
// and the estimate lands on the pluck's pitch.
#include <QCoreApplication>
#include <QProcess>
#include <QTemporaryDir>
#include <QThread>
#include <atomic>
#include <chrono>
#include <cmath>
#include <functional>
#include <mutex>
#include <set>
#include <thread>

#include "audio/MicListener.h"
#include "platform/qt/QtAudioCapture.h"
#include "platform/virtual/Fakes.h"
#include "support/PulseServer.h"
#include "support/QtApp.h"
#include "support/SyntheticPluck.h"

namespace uke {
namespace {

using Clock = std::chrono::steady_clock;

// Passes everything through to the real capture and notes what the callback saw.
class ObservedCapture : public AudioCapture {
public:
    explicit ObservedCapture(AudioCapture& inner) : inner_(inner) {}
    bool newInput(const Format& format, Callback callback) override {
        return inner_.newInput(format, [this, callback](int id, const int16_t* samples, uint32_t bytes) {
            {
                std::lock_guard lock(mutex);
                byteSizes.insert(bytes);
                threads.insert(QThread::currentThread());
            }
            ++blocks;
            callback(id, samples, bytes);
        });
    }
    int allocateBuffer(uint32_t byteSize) override { return inner_.allocateBuffer(byteSize); }
    void enqueueBuffer(int bufferId) override { inner_.enqueueBuffer(bufferId); }
    void start() override { inner_.start(); }
    void stop() override { inner_.stop(); }
    void dispose() override { inner_.dispose(); }
    bool isRunning() const override { return inner_.isRunning(); }
    std::string lastError() const override { return inner_.lastError(); }

    std::mutex mutex;
    std::set<uint32_t> byteSizes;
    std::set<QThread*> threads;
    std::atomic<int> blocks{0};

private:
    AudioCapture& inner_;
};

struct CaptureCase {
    const char* name;
    int deviceRate; // 0: the server resamples; otherwise the capture resamples
};

class MicCapture : public test::PulseServerTest, public ::testing::WithParamInterface<CaptureCase> {
protected:
    void SetUp() override {
        test::PulseServerTest::SetUp();
        if (IsSkipped() || HasFatalFailure())
            return;
        test::ensureQtApp();
        QtAudioCaptureOptions options;
        options.deviceRate = GetParam().deviceRate;
        capture = makeQtAudioCapture(options);
        observed = std::make_unique<ObservedCapture>(*capture);
        ASSERT_TRUE(pulse().waitMicrophoneDrained(std::chrono::seconds(20)));
        MicListener::configure(*observed, log);
        listener = MicListener::sharedListener();
    }
    void TearDown() override {
        if (listener)
            listener->stop();
        observed.reset();
        capture.reset();
    }
    static bool waitFor(const std::function<bool()>& done, std::chrono::seconds limit) {
        const auto deadline = Clock::now() + limit;
        while (Clock::now() < deadline) {
            if (done())
                return true;
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        }
        return false;
    }

    RecordingLog log;
    std::unique_ptr<AudioCapture> capture;
    std::unique_ptr<ObservedCapture> observed;
    MicListener* listener = nullptr;
};

TEST_P(MicCapture, PluckOnTheMicrophoneIsEstimatedAtItsPitch) {
    const auto started = Clock::now();
    listener->listen();
    ASSERT_TRUE(listener->isListening()) << capture->lastError();
    EXPECT_EQ(log.lines, std::vector<std::string>{"AudioQueueSetProperty error: 0"});
    // The microphone streams silence between plucks (and may still be finishing
    // the last test's): wait for a quiet block, so the pluck is what is heard next.
    ASSERT_TRUE(waitFor([&] { return observed->blocks > 0; }, std::chrono::seconds(15))) << pulse().serverLog();
    const auto firstBlockMs = std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - started).count();
    std::printf("first block after %lld ms\n", static_cast<long long>(firstBlockMs));
    ASSERT_TRUE(waitFor([&] { return listener->averagePower() < 0.001f; }, std::chrono::seconds(15)));

    // Bin 915 exactly, so that any block of the decaying tone peaks there.
    const double hertz = 915 * 14039.0 / 32768.0;
    pulse().writeToMicrophone(test::syntheticPluck(hertz, 44100.0, 44100 * 2), 44100);
    float estimate = 0.0f, level = 0.0f;
    const bool heard = waitFor(
        [&] {
            level = listener->averagePower();
            estimate = listener->frequency();
            return level > 0.02f && std::abs(estimate - hertz) < 0.5;
        },
        std::chrono::seconds(20));
    EXPECT_TRUE(heard) << "last estimate " << estimate << " Hz at level " << level;
    EXPECT_EQ(estimate, listener->frequencyOfBin(915));
    EXPECT_GT(listener->peakPower(), level);

    {
        std::lock_guard lock(observed->mutex);
        EXPECT_EQ(observed->byteSizes, std::set<uint32_t>{8192});
        EXPECT_EQ(observed->threads.size(), 1u);
        EXPECT_EQ(observed->threads.count(QThread::currentThread()), 0u) << "blocks came on the main thread";
    }

    listener->stop();
    EXPECT_FALSE(capture->isRunning());
    const int after = observed->blocks;
    std::this_thread::sleep_for(std::chrono::milliseconds(400));
    EXPECT_EQ(observed->blocks, after) << "blocks arrived after the queue was disposed";
}

TEST_P(MicCapture, PauseStopsTheBlocksAndListenResumesThem) {
    listener->listen();
    ASSERT_TRUE(waitFor([&] { return observed->blocks > 0; }, std::chrono::seconds(15)));
    listener->pause();
    EXPECT_FALSE(listener->isListening());
    const int paused = observed->blocks;
    std::this_thread::sleep_for(std::chrono::milliseconds(400));
    EXPECT_EQ(observed->blocks, paused);

    listener->listen();
    EXPECT_TRUE(listener->isListening());
    EXPECT_TRUE(waitFor([&] { return observed->blocks > paused; }, std::chrono::seconds(15)));
}

INSTANTIATE_TEST_SUITE_P(Rates, MicCapture,
                         ::testing::Values(CaptureCase{"At14039Hz", 0}, CaptureCase{"Resampledfrom48000Hz", 48000}),
                         [](const auto& info) { return std::string(info.param.name); });

// Qt connects to the sound server once per process, so the case without one runs
// in a child process of this program whose PULSE_SERVER leads nowhere.
TEST(MicCaptureWithoutServer, MissingInputIsLoggedAndTheListenerReadsNothing) {
    test::ensureQtApp();
    if (qEnvironmentVariableIsSet("UKE_E2E_NO_SOUND_SERVER")) {
        auto capture = makeQtAudioCapture(QtAudioCaptureOptions{});
        RecordingLog log;
        MicListener::configure(*capture, log);
        MicListener* listener = MicListener::sharedListener();
        listener->listen();
        EXPECT_TRUE(log.contains("Error creating session: no audio input device is available")) << log.lines.size();
        EXPECT_FALSE(listener->isListening());
        EXPECT_EQ(listener->averagePower(), 0.0f);
        EXPECT_EQ(listener->frequency(), 0.0f);
        return;
    }
    QTemporaryDir home;
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert("UKE_E2E_NO_SOUND_SERVER", "1");
    env.insert("PULSE_SERVER", "unix:" + home.filePath("no-such-socket"));
    env.insert("HOME", home.path());
    env.insert("XDG_RUNTIME_DIR", home.path());
    env.insert("XDG_CONFIG_HOME", home.path());
    QProcess child;
    child.setProcessEnvironment(env);
    child.setProcessChannelMode(QProcess::MergedChannels);
    child.start(QCoreApplication::applicationFilePath(),
                {"--gtest_filter=MicCaptureWithoutServer.MissingInputIsLoggedAndTheListenerReadsNothing"});
    ASSERT_TRUE(child.waitForFinished(60000));
    const QString output = QString::fromLocal8Bit(child.readAll());
    EXPECT_EQ(child.exitStatus(), QProcess::NormalExit) << output.toStdString();
    EXPECT_EQ(child.exitCode(), 0) << output.toStdString();
    EXPECT_TRUE(output.contains("[  PASSED  ] 1 test")) << output.toStdString();
}

} // namespace
} // namespace uke
