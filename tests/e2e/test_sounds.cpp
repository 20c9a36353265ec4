// The app's sounds heard on the speaker of the private PulseAudio server: the string
// samples, the confirmation beep and the tuning fork, from the running app and from
// `uke tone --play`, measured on what the speaker played.
#include <QFile>
#include <QProcess>
#include <algorithm>
#include <cmath>
#include <functional>
#include <memory>
#include <vector>

#include "audio/MicListener.h"
#include "base/SharedState.h"
#include "support/FinePitch.h"
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

// The pitch of samples [from, from + count) of a recording, near `guess`.
double pitchOf(const std::vector<int16_t>& rec, size_t from, size_t count, double guess) {
    from = std::min(from, rec.size());
    return finePitch(rec.data() + from, std::min(count, rec.size() - from), kRate, guess);
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
        app = std::make_unique<RunningApp>("phone-844", "en", RunningApp::Seed{},
                                           QStringLiteral(UKE_SOURCE_DIR "/resources/sounds"), RunningApp::Audio::Real);
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
    // The recording's pitch from 0.1 s in and the tuner's readings of its first second.
    void expectNote(const std::vector<int16_t>& rec, const char* name, double target, double within = 0.1) {
        const auto [first, last] = soundingPart(rec, 1000);
        ASSERT_LT(first, last) << name << ": the speaker stayed silent";
        EXPECT_NEAR(pitchOf(rec, first + kRate / 10, kRate, target), target, within) << name;
        // The first second rings well above the tuner's thresholds.
        const std::vector<float> readings = tunerReadings(rec, first, first + kRate);
        ASSERT_GE(readings.size(), 3u);
        for (float f : readings)
            EXPECT_NEAR(f, target, target / 360.0) << name;
    }
    // Plays one string's recording with string sounds on and returns what the speaker played.
    std::vector<int16_t> playString(const char* play) {
        host->tuner()->act("toggleStringSounds", true);
        return record([&] {
            host->tuner()->act(play);
            runFor(2.6);
        });
    }

    std::unique_ptr<RunningApp> app;
    AppHost* host = nullptr;
};

// Standard tuning's first string, then baritone double D's fourth, in one running app.
TEST_F(Speaker, StringsPlayTheirRecordings) {
    expectNote(playString("play1stStringSound"), "A4.mp3", 440.0);
    for (int i = 1; i < 11; ++i)
        host->tuner()->act("showNextTuning");
    ASSERT_EQ(host->state().chosenTuning, 11);
    expectNote(playString("play4thStringSound"), "D3.mp3", 146.832);
}

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
    expectNote(rec, "the fork's A4", 440.0, 0.05);

    // Every panel has a Done button of that name: close this one by its own hand.
    QMetaObject::invokeMethod(app->item("tuningForkSheet"), "close");
    runFor(0.4);
    EXPECT_FALSE(host->state().tuningForkFlag);
}

TEST_F(Speaker, SecondStringRetunesTheRunningToneWithoutABreak) {
    const std::vector<int16_t> rec = record([&] {
        host->tuner()->act("playA440Hz");
        runFor(1.0);
        host->tuner()->act("playE329_6");
        runFor(1.0);
        host->tuner()->act("stopFreqPlay");
        runFor(0.4);
    });
    const auto [first, last] = soundingPart(rec);
    ASSERT_LT(first, last) << "the speaker stayed silent";
    ASSERT_GT(last - first, static_cast<size_t>(1.6 * kRate));
    // Loud in every 20 ms stretch from start to stop, and no step between samples
    // larger than the steepest slope of the tone itself (about 4700 at this rate).
    int steepest = 0;
    // The start and the stop are cuts (the waveform's phase carries over from the
    // last tone), smeared over a few samples by the resampler: the check leaves them out.
    for (size_t at = first + 8; at + 280 + 8 < last; at += 280) {
        int loudest = 0;
        for (size_t i = at; i < at + 280; ++i) {
            loudest = std::max(loudest, std::abs(static_cast<int>(rec[i])));
            steepest = std::max(steepest, std::abs(rec[i + 1] - rec[i]));
        }
        ASSERT_GT(loudest, 15000) << "a break " << static_cast<double>(at - first) / kRate << " s in";
    }
    EXPECT_LT(steepest, 7000);
    EXPECT_NEAR(pitchOf(rec, first + kRate / 10, kRate / 2, 440.0), 440.0, 0.1);
    EXPECT_NEAR(pitchOf(rec, last - kRate * 6 / 10, kRate / 2, 329.63), 329.628, 0.1);
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
    ASSERT_LT(first, last) << "the speaker stayed silent";
    EXPECT_NEAR(static_cast<double>(last - first) / kRate, 1.2, 0.3);
    EXPECT_NEAR(pitchOf(rec, first + kRate / 10, kRate * 8 / 10, 261.63), 261.626, 0.1);
}

} // namespace
} // namespace uke::test
