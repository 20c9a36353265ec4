// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
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

#include "AppHost.h"
#include "audio/MicListener.h"
#include "platform/qt/QtAudioCapture.h"
#include "platform/virtual/Fakes.h"
#include "support/PulseServerTest.h"
#include "support/RunningApp.h"
#include "support/SyntheticPluck.h"

namespace uke {
namespace {

using namespace std::chrono_literals;

// Passes everything through to the real capture and notes what the callback saw.
class ObservedCapture : public AudioCapture {
public:
    explicit ObservedCapture(std::unique_ptr<AudioCapture> inner) : inner_(std::move(inner)) {}
    bool newInput(const Format& format, Callback callback) override {
        return inner_->newInput(format, [this, callback](int id, const int16_t* samples, uint32_t bytes) {
            {
                std::lock_guard lock(mutex);
                seen.insert({bytes, QThread::currentThread()});
            }
            ++blocks;
            callback(id, samples, bytes);
        });
    }
    int allocateBuffer(uint32_t byteSize) override { return inner_->allocateBuffer(byteSize); }
    void enqueueBuffer(int bufferId) override { inner_->enqueueBuffer(bufferId); }
    void start() override { inner_->start(); }
    void stop() override { inner_->stop(); }
    void dispose() override { inner_->dispose(); }
    bool isRunning() const override { return inner_->isRunning(); }
    std::string lastError() const override { return inner_->lastError(); }

    std::mutex mutex;
    std::set<std::pair<uint32_t, QThread*>> seen; // byte size and thread of every block
    std::atomic<int> blocks{0};

private:
    std::unique_ptr<AudioCapture> inner_;
};

// Runs the event loop until `done` holds or the time is up.
bool waitFor(const std::function<bool()>& done, std::chrono::seconds limit) {
    return test::settleUntil(done, static_cast<int>(std::chrono::milliseconds(limit).count()));
}

class MicCapture : public test::PulseServerTest, public ::testing::WithParamInterface<int> {};

// deviceRate 0: the server resamples to 14039 Hz; otherwise the capture resamples.
TEST_P(MicCapture, PluckIsEstimatedAtItsPitchAndPauseAndStopEndTheBlocks) {
    test::ensureQtApp();
    QtAudioCaptureOptions options;
    options.deviceRate = GetParam();
    ObservedCapture capture(makeQtAudioCapture(options));
    ASSERT_TRUE(pulse().waitMicrophoneDrained(20s));
    RecordingLog log;
    const MicListener::Attachment attached(capture, log);
    MicListener* listener = MicListener::sharedListener();
    listener->listen();
    ASSERT_TRUE(listener->isListening()) << capture.lastError();
    EXPECT_EQ(log.lines, std::vector<std::string>{"AudioQueueSetProperty error: 0"});
    // The microphone streams silence between plucks (and may still be finishing the
    // last test's): wait for a quiet block, so the pluck is what is heard next.
    ASSERT_TRUE(waitFor([&] { return capture.blocks > 0; }, 15s)) << pulse().serverLog();
    ASSERT_TRUE(waitFor([&] { return listener->averagePower() < 0.001f; }, 15s));

    // Bin 915 exactly, so that any block of the decaying tone peaks there.
    const double hertz = 915 * 14039.0 / 32768.0;
    pulse().writeToMicrophone(test::syntheticPluck(hertz, test::PulseServer::kRate, 2 * test::PulseServer::kRate));
    float estimate = 0.0f, level = 0.0f;
    EXPECT_TRUE(waitFor(
        [&] {
            level = listener->averagePower();
            estimate = listener->frequency();
            return level > 0.02f && std::abs(estimate - hertz) < 0.5;
        },
        20s))
        << "last estimate " << estimate << " Hz at level " << level;
    EXPECT_EQ(estimate, listener->frequencyOfBin(915));
    {
        std::lock_guard lock(capture.mutex);
        ASSERT_EQ(capture.seen.size(), 1u) << "blocks of several sizes or threads";
        EXPECT_EQ(capture.seen.begin()->first, 8192u);
        EXPECT_NE(capture.seen.begin()->second, QThread::currentThread()) << "blocks came on the main thread";
    }

    const auto quietAfter = [&](auto endCapture) {
        endCapture();
        const int before = capture.blocks;
        std::this_thread::sleep_for(400ms);
        return capture.blocks == before && !listener->isListening();
    };
    EXPECT_TRUE(quietAfter([&] { listener->pause(); })) << "blocks arrived while paused";
    listener->listen();
    const int resumed = capture.blocks;
    EXPECT_TRUE(waitFor([&] { return capture.blocks > resumed; }, 15s));
    EXPECT_TRUE(quietAfter([&] { listener->stop(); })) << "blocks arrived after the queue was disposed";
}

INSTANTIATE_TEST_SUITE_P(Rates, MicCapture, ::testing::Values(0, 48000));

// A machine with no sound server at all (so no microphone and no speaker): the
// app starts, its read-out says there is no microphone, the tones and the string
// sounds stay silent, and each of these is said once on the error stream. Qt
// connects to the sound server once per process, so this runs in a child process
// of this program whose PULSE_SERVER leads nowhere.
TEST(AppWithoutSoundServer, RunsAndSaysThereIsNoMicrophoneAndNoSpeaker) {
    test::ensureQtApp();
    QTemporaryDir home;
    if (qEnvironmentVariableIsSet("UKE_E2E_NO_SOUND_SERVER")) {
        AppHost::Options o;
        o.device = *DeviceClass::parse("phone-844");
        o.settingsPath = home.filePath("settings.ini");
        o.language = "en";
        o.resourcePath = QStringLiteral(UKE_SOURCE_DIR "/resources/sounds");
        AppHost host(o);
        ASSERT_TRUE(host.start());
        EXPECT_FALSE(host.hearing());
        EXPECT_EQ(host.idleReadout(), "No microphone found");
        EXPECT_EQ(MicListener::sharedListener()->averagePower() + MicListener::sharedListener()->frequency(), 0.0f);
        host.tuner()->act("toggleStringSounds", true);
        for (int twice = 0; twice < 2; ++twice) {
            host.tuner()->act("playA440Hz");
            host.tuner()->act("play1stStringSound");
            QCoreApplication::processEvents();
            host.tuner()->act("stopFreqPlay");
        }
        return;
    }
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert("UKE_E2E_NO_SOUND_SERVER", "1");
    env.insert("PULSE_SERVER", "unix:" + home.filePath("no-such-socket"));
    for (const char* dir : {"HOME", "XDG_RUNTIME_DIR", "XDG_CONFIG_HOME"})
        env.insert(dir, home.path());
    QProcess child;
    child.setProcessEnvironment(env);
    child.setProcessChannelMode(QProcess::MergedChannels);
    child.start(QCoreApplication::applicationFilePath(),
                {"--gtest_filter=AppWithoutSoundServer.RunsAndSaysThereIsNoMicrophoneAndNoSpeaker"});
    ASSERT_TRUE(child.waitForFinished(60000));
    const std::string output = QString::fromLocal8Bit(child.readAll()).toStdString();
    EXPECT_EQ(child.exitStatus(), QProcess::NormalExit) << output;
    EXPECT_EQ(child.exitCode(), 0) << output;
    EXPECT_NE(output.find("[  PASSED  ] 1 test"), std::string::npos) << output;
    for (const char* line : {"Error creating session: no audio input device is available",
                             "Tone output: no audio output device; the reference tone stays silent",
                             "Sounds: no audio output device; the string sounds and the beep stay silent"}) {
        const size_t at = output.find(line);
        EXPECT_NE(at, std::string::npos) << line << "\n" << output;
        EXPECT_EQ(output.find(line, at + 1), std::string::npos) << "said more than once: " << line;
    }
}

} // namespace
} // namespace uke
