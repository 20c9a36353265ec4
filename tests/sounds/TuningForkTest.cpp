// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
// The tuning-fork tone and the string samples as the tuner screen drives them.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "base/TuningCatalogue.h"
#include "sounds/ToneGenerator.h"
#include "support/TunerFixture.h"

namespace uke::test {
namespace {

class TuningFork : public TunerFixture {
protected:
    TuningFork() { launch(); }
    // The fork's tone buttons and the string buttons, 1 to 4.
    // Calls, not a table of member pointers: GCC's sanitizer build warns that a
    // call through one may read it uninitialised.
    void press(int button) {
        switch (button) {
        case 1: controller->playA440Hz(); break;
        case 2: controller->playE329_6(); break;
        case 3: controller->playC261_6Hz(); break;
        default: controller->playG392Hz(); break;
        }
    }
    void pressString(int button) {
        switch (button) {
        case 1: controller->play1stStringSound(); break;
        case 2: controller->play2ndStringSound(); break;
        case 3: controller->play3rdStringSound(); break;
        default: controller->play4thStringSound(); break;
        }
    }
    void calibrate(long a4) {
        platform.memoryStore.setInteger("savedA4Calibration", a4);
        controller->viewWillAppear();
    }
};

// Which note each tuning has on each string is pinned by the tool's tuning table;
// the fork sounds each at the stored calibration's pitch.
TEST_F(TuningFork, EveryButtonOfEveryTuningShowsSoundsAndPlaysItsOwnString) {
    calibrate(430);
    ASSERT_EQ(state.targets[Pitch::A4].target, 430.0);
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

// The render step. Every waveform's samples, rendered in blocks as an audio device
// pulls them, are pinned byte for byte by the tool's golden `uke tone` outputs;
// here what those cannot show: a change of pitch or waveform while the tone runs,
// and values that name no waveform.
struct Tone {
    ToneGenerator gen;
    std::atomic<int64_t> curTone{1};

    explicit Tone(int64_t wave, float hz = 440.0f) {
        curTone = wave;
        gen.toneFrequency = hz;
    }
    // Left channel of the next `frames` frames; checks the right channel matches.
    std::vector<int> next(uint32_t frames) {
        std::vector<int16_t> buf(frames * 2u, 12345);
        gen.render(buf.data(), frames, curTone);
        std::vector<int> left;
        for (uint32_t i = 0; i < frames; ++i) {
            EXPECT_EQ(buf[2 * i], buf[2 * i + 1]) << "frame " << i;
            left.push_back(buf[2 * i]);
        }
        return left;
    }
};

TEST(ToneGenerator, ValuesThatNameNoWaveformSoundAsThePlainSine) {
    const std::vector<int> sine = Tone(0).next(1000);
    for (int64_t wave : {4, -1, 99})
        EXPECT_EQ(Tone(wave).next(1000), sine) << "wave " << wave;
}

// A second string retunes the running tone: the new pitch moves the phase only
// from where the old one left it.
TEST(ToneGenerator, ANewPitchCarriesOnFromThePhaseReached) {
    Tone t(0, 5512.5f); // an eighth of a cycle per frame
    t.next(3);          // phase now 3pi/4
    t.gen.toneFrequency = 11025.0f;
    // 3pi/4, then a quarter cycle per frame: 5pi/4, 7pi/4, 9pi/4 wrapped to pi/4.
    EXPECT_EQ(t.next(4), (std::vector<int>{21019, -21019, -21019, 21019}));
}

// The waveform state runs on while the sine alone is heard, so switching back
// picks up the triangle where it would have been.
TEST(ToneGenerator, WaveformStateRunsOnWhileAnotherWaveformIsHeard) {
    Tone steady(1), swapped(1);
    steady.next(500);
    swapped.next(200);
    swapped.curTone = 0;
    swapped.next(100);
    swapped.curTone = 1;
    swapped.next(200);
    EXPECT_EQ(steady.next(50), swapped.next(50));
}

} // namespace
} // namespace uke::test
