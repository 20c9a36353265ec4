// The tuning-fork tone and the string samples as the tuner screen drives them.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <string>
#include <vector>

#include "support/TunerFixture.h"

namespace uke::test {
namespace {

// The notes of each tuning's four buttons, string 1 first.
const std::array<std::array<const char*, 4>, 11> kNotes = {{
    {"A4", "E4", "C4", "G4"},
    {"A4", "E4", "C4", "G3"},
    {"B4", "F#4", "D4", "A4"},
    {"B4", "F#4", "D4", "A3"},
    {"E4", "B3", "G3", "D3"},
    {"G#4", "D#4", "B3", "F#4"},
    {"G4", "D4", "A#3", "F4"},
    {"A#4", "F4", "C#4", "G#4"},
    {"B4", "F#4", "D4", "A4"},
    {"G4", "E4", "C4", "G4"},
    {"D3", "B3", "G3", "D3"},
}};

// Equal-tempered pitches at A4 = 440, as the frequency label shows them.
std::string label440(const std::string& note) {
    static const std::map<std::string, std::string> hz = {
        {"D3", "146.8Hz"},  {"G3", "196.0Hz"},  {"A3", "220.0Hz"}, {"A#3", "233.1Hz"}, {"B3", "246.9Hz"},
        {"C4", "261.6Hz"},  {"C#4", "277.2Hz"}, {"D4", "293.7Hz"}, {"D#4", "311.1Hz"}, {"E4", "329.6Hz"},
        {"F4", "349.2Hz"},  {"F#4", "370.0Hz"}, {"G4", "392.0Hz"}, {"G#4", "415.3Hz"}, {"A4", "440.0Hz"},
        {"A#4", "466.2Hz"}, {"B4", "493.9Hz"}};
    return hz.at(note);
}

// "F#4" is stored as "FS4.mp3".
std::string fileOf(const std::string& note) {
    std::string stem = note;
    if (const auto sharp = stem.find('#'); sharp != std::string::npos)
        stem.replace(sharp, 1, "S");
    return "/res/" + stem + ".mp3";
}

class TuningFork : public TunerFixture {
protected:
    TuningFork() { launch(); }
    using Action = void (ViewController::*)();
    void press(int button) {
        static constexpr Action tones[4] = {&ViewController::playA440Hz, &ViewController::playE329_6,
                                            &ViewController::playC261_6Hz, &ViewController::playG392Hz};
        ((*controller).*tones[button - 1])();
    }
    void pressString(int button) {
        static constexpr Action samples[4] = {&ViewController::play1stStringSound, &ViewController::play2ndStringSound,
                                              &ViewController::play3rdStringSound, &ViewController::play4thStringSound};
        ((*controller).*samples[button - 1])();
    }
    void calibrate(long a4) {
        platform.memoryStore.setInteger("savedA4Calibration", a4);
        controller->viewWillAppear();
    }
};

TEST_F(TuningFork, EveryButtonOfEveryTuningShowsAndSoundsItsNote) {
    for (int64_t tuning = 1; tuning <= 11; ++tuning) {
        state.chosenTuning = tuning;
        for (int b = 1; b <= 4; ++b) {
            const std::string note = kNotes[static_cast<size_t>(tuning - 1)][static_cast<size_t>(b - 1)];
            press(b);
            SCOPED_TRACE("tuning " + std::to_string(tuning) + " button " + std::to_string(b));
            EXPECT_EQ(screen.tfnoteDisplay.text, note);
            EXPECT_EQ(screen.tfFreqLabel.text, label440(note));
            EXPECT_NEAR(tone.toneFrequency.load(), std::stod(label440(note)), 0.05);
        }
    }
}

TEST_F(TuningFork, BaritoneDoubleDPlaysTheSameD3OnBothOuterStrings) {
    state.chosenTuning = 11;
    press(1);
    const float first = tone.toneFrequency;
    const std::string label = screen.tfFreqLabel.text;
    press(2);
    press(4);
    EXPECT_EQ(screen.tfnoteDisplay.text, "D3");
    EXPECT_EQ(tone.toneFrequency.load(), first);
    EXPECT_EQ(screen.tfFreqLabel.text, label);
}

TEST_F(TuningFork, TuningOutsideTheCatalogueChangesNothing) {
    press(2);
    const int starts = platform.output.startCount;
    controller->stopFreqPlay();
    for (int64_t tuning : {0, 12, -1}) {
        state.chosenTuning = tuning;
        for (int b = 1; b <= 4; ++b)
            press(b);
        EXPECT_EQ(screen.tfnoteDisplay.text, "E4");
        EXPECT_EQ(screen.tfFreqLabel.text, "329.6Hz");
        EXPECT_EQ(tone.toneFrequency.load(), static_cast<float>(state.targets[Pitch::E4].target));
        EXPECT_EQ(controller->curPlayState(), 1);
    }
    EXPECT_EQ(platform.output.startCount, starts);
}

TEST_F(TuningFork, ToneFollowsTheStoredCalibration) {
    calibrate(442);
    press(1);
    EXPECT_EQ(screen.tfFreqLabel.text, "442.0Hz");
    EXPECT_EQ(tone.toneFrequency.load(), 442.0f);
    press(2);
    EXPECT_EQ(screen.tfFreqLabel.text, "331.1Hz"); // 329.63 x 442/440
    EXPECT_NEAR(tone.toneFrequency.load(), 331.13, 0.01);
    calibrate(430);
    press(4);
    EXPECT_EQ(screen.tfFreqLabel.text, "383.1Hz"); // 392.00 x 430/440
    // The tone is the label's double, narrowed once.
    EXPECT_EQ(tone.toneFrequency.load(), static_cast<float>(state.targets[Pitch::G4].target));
}

TEST_F(TuningFork, PlayStartsTheStreamAndStopStopsItOnce) {
    EXPECT_EQ(controller->curPlayState(), 1);
    controller->stopFreqPlay(); // stopped already: nothing happens
    EXPECT_EQ(platform.output.stopCount, 0);

    press(1);
    if (demoModeEnabled) {
        // The demonstration screen shows the note but stays silent.
        EXPECT_EQ(controller->curPlayState(), 1);
        EXPECT_EQ(platform.output.startCount, 0);
        EXPECT_EQ(screen.tfnoteDisplay.text, "A4");
        return;
    }
    EXPECT_EQ(controller->curPlayState(), 0);
    EXPECT_EQ(platform.output.startCount, 1);

    // A second press retunes the running tone; nothing is stopped in between.
    press(3);
    EXPECT_EQ(platform.output.startCount, 2);
    EXPECT_EQ(platform.output.stopCount, 0);

    controller->stopFreqPlay();
    controller->stopFreqPlay();
    EXPECT_EQ(controller->curPlayState(), 1);
    EXPECT_EQ(platform.output.stopCount, 1);
}

TEST_F(TuningFork, StreamRendersTheGeneratorsToneWithTheControllersWaveform) {
    if (demoModeEnabled)
        GTEST_SKIP() << "no output stream in demonstration mode";
    EXPECT_EQ(platform.output.setupCount, 1);
    press(1);
    const auto frames = platform.output.pull(3);
    EXPECT_EQ(frames[0], 0);
    EXPECT_EQ(frames[1], frames[0]);
    // Frame 1: sin of one 440 Hz step mixed with the triangle at 4 steps of 0.0099773.
    EXPECT_NEAR(frames[2], 29725.67 * (0.0626482 + 0.0399093) / 2, 1.0);

    // The waveform choice is read while rendering; 0 makes a plain sine.
    controller->setCurTone(0);
    const double phase = tone.phase();
    const auto next = platform.output.pull(1);
    EXPECT_EQ(next[0], static_cast<int16_t>(29725.671468948 * std::sin(phase)));
}

TEST_F(TuningFork, EachAppearanceMakesAFreshStreamAndResetsTheControls) {
    press(1);
    controller->setCurTone(3);
    const double phase = tone.phase();
    controller->viewWillAppear();
    EXPECT_EQ(controller->curTone(), 1);
    EXPECT_EQ(controller->curPlayState(), 1);
    EXPECT_EQ(platform.output.setupCount, demoModeEnabled ? 0 : 2);
    // The synthesis state survives: the next tone resumes at the old phase.
    EXPECT_EQ(tone.phase(), phase);
}

TEST_F(TuningFork, StringSamplesFollowTheTuningTable) {
    controller->toggleStringSounds(true);
    const size_t beepOnly = platform.sounds.made.size();
    std::vector<std::string> want;
    for (int64_t tuning = 1; tuning <= 11; ++tuning) {
        state.chosenTuning = tuning;
        for (int b = 1; b <= 4; ++b) {
            pressString(b);
            want.push_back(fileOf(kNotes[static_cast<size_t>(tuning - 1)][static_cast<size_t>(b - 1)]));
        }
    }
    EXPECT_EQ(platform.sounds.played, want);
    EXPECT_EQ(std::vector<std::string>(platform.sounds.made.begin() + static_cast<long>(beepOnly),
                                       platform.sounds.made.end()),
              want);
}

TEST_F(TuningFork, StringSamplesAreSilentWhenSwitchedOffOrOutOfRange) {
    const size_t before = platform.sounds.made.size(); // the beep's player
    for (int b = 1; b <= 4; ++b)
        pressString(b);
    EXPECT_EQ(platform.sounds.made.size(), before);
    EXPECT_TRUE(platform.sounds.played.empty());

    // The tone does not depend on the switch.
    press(1);
    EXPECT_EQ(screen.tfnoteDisplay.text, "A4");

    controller->toggleStringSounds(true);
    state.chosenTuning = 12;
    pressString(1);
    state.chosenTuning = 0;
    pressString(4);
    EXPECT_TRUE(platform.sounds.played.empty());
}

TEST_F(TuningFork, EveryStringPressMakesAFreshPlayerAndAMissingFileIsQuiet) {
    controller->toggleStringSounds(true);
    pressString(1);
    pressString(1);
    EXPECT_EQ(platform.sounds.played, (std::vector<std::string>{"/res/A4.mp3", "/res/A4.mp3"}));
    EXPECT_EQ(std::count(platform.sounds.made.begin(), platform.sounds.made.end(), "/res/A4.mp3"), 2);

    platform.sounds.missing = {"E4.mp3"};
    const size_t logLines = platform.log.lines.size();
    pressString(2);
    EXPECT_EQ(platform.sounds.played.size(), 2u);
    EXPECT_EQ(platform.log.lines.size(), logLines);
}

TEST_F(TuningFork, PanelOpenAndCloseStoreTheForkFlag) {
    const int syncs = platform.memoryStore.synchronizeCount;
    controller->disableTemporarilySoundConfirmation();
    EXPECT_EQ(platform.memoryStore.integerForKey("currentlyUsingTuningFork"), 1);
    EXPECT_TRUE(state.tuningForkFlag);
    EXPECT_EQ(platform.memoryStore.synchronizeCount, syncs + 1);
    // Nothing else reads the flag: the beep still sounds while the panel is open.
    EXPECT_TRUE(state.soundNotificationOn);

    controller->enableSoundConfirmation();
    EXPECT_EQ(platform.memoryStore.integerForKey("currentlyUsingTuningFork"), 0);
    EXPECT_TRUE(platform.memoryStore.hasKey("currentlyUsingTuningFork"));
    EXPECT_FALSE(state.tuningForkFlag);
    EXPECT_GE(platform.memoryStore.synchronizeCount, syncs + 2);
}

} // namespace
} // namespace uke::test
