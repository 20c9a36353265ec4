// The tuning-fork tone and the string samples as the tuner screen drives them.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <string>
#include <vector>

#include "base/TuningCatalogue.h"
#include "support/TunerFixture.h"

namespace uke::test {
namespace {

class TuningFork : public TunerFixture {
protected:
    TuningFork() { launch(); }
    // The fork's tone buttons and the string buttons, 1 to 4.
    void press(int button) {
        using VC = ViewController;
        (controller->*std::array{&VC::playA440Hz, &VC::playE329_6, &VC::playC261_6Hz, &VC::playG392Hz}[button - 1])();
    }
    void pressString(int button) {
        using VC = ViewController;
        (controller->*std::array{&VC::play1stStringSound, &VC::play2ndStringSound, &VC::play3rdStringSound,
                                 &VC::play4thStringSound}[button - 1])();
    }
    void calibrate(long a4) {
        platform.memoryStore.setInteger("savedA4Calibration", a4);
        controller->viewWillAppear();
    }
};

// Which note each tuning has on each string is pinned by the tool's tuning table.
TEST_F(TuningFork, EveryButtonOfEveryTuningShowsSoundsAndPlaysItsOwnString) {
    controller->toggleStringSounds(true);
    std::vector<std::string> want;
    for (int64_t tuning = TuningCatalogue::kFirst; tuning <= TuningCatalogue::kLast; ++tuning) {
        state.chosenTuning = tuning;
        for (int b = 1; b <= 4; ++b) {
            SCOPED_TRACE("tuning " + std::to_string(tuning) + " button " + std::to_string(b));
            const Pitch pitch = TuningCatalogue::tuning(tuning).strings[static_cast<size_t>(b - 1)];
            const double hz = state.targets[pitch].target;
            press(b);
            pressString(b);
            want.push_back("/res/" + std::string(pitchFileStem(pitch)) + ".mp3");
            EXPECT_EQ(screen.tfnoteDisplay.text, pitchName(pitch));
            EXPECT_NEAR(std::stod(screen.tfFreqLabel.text), hz, 0.05);
            EXPECT_EQ(tone.toneFrequency.load(), static_cast<float>(hz)) << "the label's double, narrowed once";
        }
    }
    EXPECT_EQ(platform.sounds.played, want);
}

// The tuning is always one of the catalogue's: the actions and the arrows stop at its ends.
TEST_F(TuningFork, SwitchedOffTheStringsAreSilentAndEveryPressMakesAFreshPlayer) {
    const size_t players = platform.sounds.made.size(); // the beep's, made at load
    for (int b = 1; b <= 4; ++b)
        pressString(b); // switched off
    EXPECT_TRUE(platform.sounds.made.size() == players && platform.sounds.played.empty());
    controller->toggleStringSounds(true);
    // Every press makes a fresh player; a missing file is quiet.
    pressString(1);
    pressString(1);
    EXPECT_EQ(std::count(platform.sounds.made.begin(), platform.sounds.made.end(), "/res/A4.mp3"), 2);
    platform.sounds.missing = {"E4.mp3"};
    const size_t logLines = platform.log.lines.size();
    pressString(2);
    EXPECT_EQ(platform.sounds.played, (std::vector<std::string>{"/res/A4.mp3", "/res/A4.mp3"}));
    EXPECT_EQ(platform.log.lines.size(), logLines);
}

TEST_F(TuningFork, ToneFollowsTheStoredCalibration) {
    calibrate(430); // the targets at other pitches are the tool's tuning table's
    press(4);
    EXPECT_EQ(screen.tfFreqLabel.text, "383.1Hz"); // 392.00 x 430/440
}

// The demonstration screen shows the notes but stays silent.
TEST_F(TuningFork, PlayStartsTheStreamStopStopsItOnceEachAppearanceMakesAFreshOneThatRendersTheTone) {
    controller->stopFreqPlay(); // stopped already: nothing happens
    press(1);
    EXPECT_EQ(controller->curPlayState(), demoModeEnabled ? 1 : 0);
    press(3); // retunes the running tone; nothing is stopped in between
    EXPECT_EQ(platform.output.startCount, demoModeEnabled ? 0 : 2);
    EXPECT_EQ(platform.output.stopCount, 0);
    controller->stopFreqPlay();
    controller->stopFreqPlay();
    EXPECT_EQ(controller->curPlayState(), 1);
    EXPECT_EQ(platform.output.stopCount, demoModeEnabled ? 0 : 1);

    press(1);
    controller->setCurTone(3);
    const double phase = tone.phase();
    controller->viewWillAppear();
    EXPECT_EQ(controller->curTone(), 1);
    EXPECT_EQ(controller->curPlayState(), 1);
    EXPECT_EQ(platform.output.setupCount, demoModeEnabled ? 0 : 2);
    EXPECT_EQ(tone.phase(), phase) << "the synthesis state survives";

    // The stream renders the generator's tone with the controller's waveform.
    if (demoModeEnabled)
        return; // no output stream
    press(1);
    // Frame 1: sin of one 440 Hz step mixed with the triangle at 4 steps of 0.0099773.
    EXPECT_NEAR(platform.output.pull(3)[2], 29725.67 * (0.0626482 + 0.0399093) / 2, 1.0);
    // The waveform choice is read while rendering; 0 makes a plain sine.
    controller->setCurTone(0);
    const double now = tone.phase();
    EXPECT_EQ(platform.output.pull(1)[0], static_cast<int16_t>(29725.671468948 * std::sin(now)));
}

} // namespace
} // namespace uke::test
