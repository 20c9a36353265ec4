// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
// The app's sounds heard on the speaker of the private PulseAudio server: a sample
// (the confirmation beep) and the tuning fork's tone, from the running app and from
// `uke tone --play`, measured by the tuner's own estimator on what the speaker played.
// Which file or pitch each button plays, and a retune without a stop, are the sound
// unit tests'; these hold the device paths to them.
#include <QFile>
#include <QProcess>
#include <algorithm>
#include <cmath>
#include <functional>
#include <memory>
#include <vector>

#include "audio/MicListener.h"
#include "base/SharedState.h"
#include "support/PulseServerTest.h"
#include "support/RunningApp.h"
#include "tuner/ViewController.h"

namespace uke::test {
namespace {

// The speaker is recorded at the microphone's rate, so the tuner's own estimator
// can read the recording as it would read a microphone buffer.
constexpr int kRate = 14039;

// Where the recording is louder than `level`: the first and last such sample.
std::pair<size_t, size_t> soundingPart(const std::vector<int16_t>& rec, int level = 2000) {
    size_t first = rec.size(), last = 0;
    for (size_t i = 0; i < rec.size(); ++i)
        if (std::abs(rec[i]) > level) {
            first = std::min(first, i);
            last = i;
        }
    return {first, last};
}

// The tuner's estimate for each whole 4096-sample block of [from, to).
std::vector<float> tunerReadings(const std::vector<int16_t>& rec, size_t from, size_t to) {
    std::vector<float> hz;
    for (size_t at = from; at + 4096 <= std::min(to, rec.size()); at += 4096)
        hz.push_back(MicListener::sharedListener()->getFreqFromBuffer(rec.data() + at, 8192));
    return hz;
}

class Speaker : public PulseServerTest {
protected:
    void SetUp() override {
        PulseServerTest::SetUp();
        if (IsSkipped() || HasFatalFailure())
            return;
        if (demoModeEnabled)
            GTEST_SKIP() << "the demonstration build plays no sound";
        app = std::make_unique<RunningApp>("phone-844", "en", QStringLiteral(UKE_SOURCE_DIR "/resources/sounds"),
                                           RunningApp::Audio::Real);
        ASSERT_TRUE(app->started);
        host = app->host.get();
        runFor(0.2);
    }
    void TearDown() override {
        if (pulse().running())
            pulse().stopRecording();
        app.reset();
    }

    // Runs the app's event loop for a while.
    static void runFor(double seconds) { settle(static_cast<int>(seconds * 1000)); }
    // What the speaker played while `play` ran.
    std::vector<int16_t> record(const std::function<void()>& play) {
        EXPECT_TRUE(pulse().startRecordingSpeaker(kRate)) << pulse().serverLog();
        play();
        return pulse().stopRecording();
    }
    // The tuner's readings of the recording's first second.
    void expectNote(const std::vector<int16_t>& rec, const char* name, double target) {
        const auto [first, last] = soundingPart(rec, 1000);
        ASSERT_LT(first, last) << name << ": the speaker stayed silent";
        const std::vector<float> readings = tunerReadings(rec, first, first + kRate);
        ASSERT_GE(readings.size(), 3u);
        for (float f : readings)
            EXPECT_NEAR(f, target, target / 360.0) << name;
    }

    std::unique_ptr<RunningApp> app;
    AppHost* host = nullptr;
};

TEST_F(Speaker, ConfirmationBeepsOncePerStringUntilTheResetAboveTheTunersRange) {
    // The beep is prepared when the screen loads and played a while later, as in use.
    runFor(1.0);
    ViewController& tuner = host->tunerController();
    const std::vector<int16_t> rec = record([&] {
        tuner.play1stSoundOnce();
        runFor(0.3);
        tuner.play1stSoundOnce(); // already beeped: silent
        // Long enough for the first beep to end even when the media framework starts
        // slowly in a fresh process.
        runFor(2.2);
        tuner.resetTuningBools();
        tuner.play1stSoundOnce(); // re-armed: the same player sounds again
        runFor(1.0);
    });

    // Bursts louder than the level, split where it stays quiet for 0.2 s.
    std::vector<std::pair<size_t, size_t>> bursts;
    for (size_t i = 0; i < rec.size(); ++i) {
        if (std::abs(rec[i]) <= 1000)
            continue;
        if (bursts.empty() || i - bursts.back().second > kRate / 5)
            bursts.push_back({i, i});
        bursts.back().second = i;
    }
    ASSERT_EQ(bursts.size(), 2u) << "one beep, a silent repeat, then one beep after the reset";
    for (const auto& [first, last] : bursts) {
        EXPECT_LT(static_cast<double>(last - first) / kRate, 0.6) << "one short beep";
        const std::vector<float> readings = tunerReadings(rec, first, first + 4096);
        ASSERT_EQ(readings.size(), 1u);
        EXPECT_GT(readings[0], 1000.0f);
    }
    // The second beep answers the call after the reset, not the silent repeat.
    EXPECT_GT(static_cast<double>(bursts[1].first - bursts[0].first) / kRate, 1.5);
}

// The sheet's buttons and read-outs are the screen tests'; here what they sound.
TEST_F(Speaker, TuningForkSheetSoundsA440AndStopSilencesIt) {
    app->tap("tuningForkButton");
    runFor(0.5); // the sheet slides in
    EXPECT_TRUE(host->state().tuningForkFlag);
    const std::vector<int16_t> rec = record([&] {
        app->tap("a4TFButton");
        EXPECT_EQ(app->text("tfFreqLabel"), "440.0Hz");
        runFor(1.5);
        if (const QByteArray docs = qgetenv("UKE_DOCS_DIR"); !docs.isEmpty())
            host->window()->grabWindow().save(QString::fromLocal8Bit(docs) + "/tuning-fork-phone-844.png");
        app->tap("stopFreqPlayButton");
        runFor(0.5);
    });

    const auto [first, last] = soundingPart(rec);
    ASSERT_LT(first, last) << "the speaker stayed silent; " << rec.size() << " samples recorded";
    EXPECT_GT(static_cast<double>(last - first) / kRate, 1.2);
    EXPECT_LT(static_cast<double>(last - first) / kRate, 2.5);
    // Silent again once stopped.
    for (size_t i = last + kRate / 10; i < rec.size(); ++i)
        ASSERT_LT(std::abs(rec[i]), 300) << "still sounding " << static_cast<double>(i - last) / kRate
                                         << " s after the stop";
    const auto loudest = std::ranges::max(rec, {}, [](int16_t v) { return std::abs(static_cast<int>(v)); });
    EXPECT_GT(std::abs(static_cast<int>(loudest)), 26000); // the tone's full-scale peak, about 29726, resampled
    expectNote(rec, "the fork's A4", 440.0);

    // Every panel has a Done button of that name: close this one by its own hand.
    QMetaObject::invokeMethod(app->item("tuningForkSheet"), "close");
    runFor(0.4);
    EXPECT_FALSE(host->state().tuningForkFlag);
}

TEST_F(Speaker, UkeTonePlaysTheSameToneThroughTheSpeaker) {
    const QString uke = QStringLiteral(UKE_BINARY_DIR "/tools/uke/uke");
    if (!QFile::exists(uke))
        GTEST_SKIP() << "uke is not built";
    QProcess proc;
    const std::vector<int16_t> rec = record([&] {
        proc.start(uke, {"tone", "--tuning", "1", "--string", "3", "--seconds", "1.2", "--play"});
        EXPECT_TRUE(proc.waitForFinished(20000)) << "uke tone --play did not finish";
        runFor(0.3);
    });
    EXPECT_EQ(proc.exitCode(), 0) << proc.readAllStandardError().toStdString();
    EXPECT_NE(proc.readAllStandardOutput().indexOf("C4 261.6256 Hz triangle"), -1);
    const auto [first, last] = soundingPart(rec);
    EXPECT_NEAR(static_cast<double>(last - first) / kRate, 1.2, 0.3);
    expectNote(rec, "uke tone's C4", 261.626);
}

} // namespace
} // namespace uke::test
