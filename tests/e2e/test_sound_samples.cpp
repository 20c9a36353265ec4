// String samples and the confirmation beep in the running app, heard on the speaker.
#include "test_sound_support.h"
#include "tuner/ViewController.h"

namespace uke::test {
namespace {

class SamplesEndToEnd : public SoundEndToEnd {
protected:
    // Plays one string's recording with string sounds on and returns what the speaker played.
    std::vector<int16_t> playString(const char* play, double seconds = 2.6) {
        host->tuner()->act("toggleStringSounds", true);
        EXPECT_TRUE(pulse().startRecordingSpeaker(kRecordRate)) << pulse().serverLog();
        host->tuner()->act(play);
        runFor(seconds);
        return pulse().stopRecording();
    }
    // The recording's pitch and the tuner's readings of its ringing part.
    void expectNote(const std::vector<int16_t>& rec, const char* name, double target) {
        const auto [first, last] = soundingPart(rec, 1000);
        ASSERT_LT(first, last) << name << ": the speaker stayed silent";
        const double hz = finePitch(rec, kRecordRate, first + kRecordRate / 10, kRecordRate, target);
        EXPECT_NEAR(hz, target, 0.1) << name;
        // The first second rings well above the tuner's thresholds.
        const std::vector<float> readings = tunerReadings(rec, first, first + kRecordRate);
        ASSERT_GE(readings.size(), 3u);
        for (float f : readings)
            EXPECT_NEAR(f, target, target / 360.0) << name;
    }
};

// Standard tuning's first string, then baritone double D's fourth, in one running app.
TEST_F(SamplesEndToEnd, StringsPlayTheirRecordings) {
    expectNote(playString("play1stStringSound"), "A4.mp3", 440.0);
    for (int i = 1; i < 11; ++i)
        host->tuner()->act("showNextTuning");
    ASSERT_EQ(host->state().chosenTuning, 11);
    expectNote(playString("play4thStringSound"), "D3.mp3", 146.832);
}

TEST_F(SamplesEndToEnd, ConfirmationBeepsOncePerStringUntilTheResetAboveTheTunersRange) {
    // The beep is prepared when the screen loads and played a while later, as in use.
    runFor(1.0);
    ASSERT_TRUE(pulse().startRecordingSpeaker(kRecordRate)) << pulse().serverLog();
    ViewController& tuner = host->tunerController();
    tuner.play1stSoundOnce();
    runFor(0.3);
    tuner.play1stSoundOnce(); // already beeped: silent
    // Long enough for the first beep to end even when the media framework starts
    // slowly in a fresh process.
    runFor(2.2);
    tuner.resetTuningBools();
    tuner.play1stSoundOnce(); // re-armed: the same player sounds again
    runFor(1.0);
    const std::vector<int16_t> rec = pulse().stopRecording();

    // Bursts louder than the level, split where it stays quiet for 0.2 s.
    std::vector<std::pair<size_t, size_t>> bursts;
    for (size_t i = 0; i < rec.size(); ++i) {
        if (std::abs(rec[i]) <= 1000)
            continue;
        if (bursts.empty() || i - bursts.back().second > kRecordRate / 5)
            bursts.push_back({i, i});
        bursts.back().second = i;
    }
    ASSERT_EQ(bursts.size(), 2u) << "one beep, a silent repeat, then one beep after the reset";
    for (const auto& [first, last] : bursts) {
        const double seconds = static_cast<double>(last - first) / kRecordRate;
        EXPECT_LT(seconds, 0.6) << "one short beep";
        const std::vector<float> readings = tunerReadings(rec, first, first + 4096);
        ASSERT_EQ(readings.size(), 1u);
        EXPECT_GT(readings[0], 1000.0f);
    }
    // The second beep answers the call after the reset, not the silent repeat.
    const double apart = static_cast<double>(bursts[1].first - bursts[0].first) / kRecordRate;
    EXPECT_GT(apart, 1.5);
}

} // namespace
} // namespace uke::test
