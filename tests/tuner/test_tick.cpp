// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>
#include <limits>

#include "base/SettingsKeys.h"
#include "support/TunerFixture.h"

namespace uke {
namespace {

constexpr float kLoud = 0.05f;

class Tick : public test::TunerFixture {
protected:
    Tick() {
        setDevice(Idiom::Phone, 667);
        launch();
    }
    size_t beeps() const {
        return static_cast<size_t>(std::ranges::count(platform.sounds.played, "/res/beep-full.mp3"));
    }
};

// What each reading shows, in one run: the level gates at their exact edges, the
// in-tune window's edge, and high readings recalling the last in-tune result up to
// 1000 Hz (nullptr: not looked at). In tune, the exact target shows and one beep
// sounds: the golden analyse runs.
TEST_F(Tick, ReadingsThroughTheGatesTheWindowAndTheRecall) {
    const struct {
        const char* what;
        float level, hertz;
        const char *label, *note, *lamp;
        bool held; // the read-out and the lamp as they were
    } steps[] = {
        {"above 700 with nothing tuned yet: the empty texts", kLoud, 1000.0f, "", nullptr, nullptr, false},
        {"in tune", kLoud, 441.2f, "440.0Hz", "A4", "green64.png", false},
        // Between the thresholds, both included at the top: nothing changes.
        {"at the upper threshold", 0.0045f, 300.0f, "440.0Hz", "A4", "green64.png", true},
        {"between the thresholds", 0.003f, 300.0f, "440.0Hz", "A4", "green64.png", true},
        {"at the lower threshold", 0.002f, 300.0f, "440.0Hz", "A4", "green64.png", true},
        {"just below the lower threshold clears", 0.0019f, 441.2f, "", nullptr, "yellow64.png", false},
        {"in tune again", kLoud, 441.2f, "440.0Hz", "A4", "green64.png", false},
        {"a level that is no number clears", std::numeric_limits<float>::quiet_NaN(), 300.0f, "", nullptr,
         "yellow64.png", false},
        {"in tune once more", kLoud, 441.2f, "440.0Hz", "A4", "green64.png", false},
        {"just outside the window: the measurement, the last note", kLoud, 441.3f, "441.3Hz", "A4", nullptr, false},
        {"700 itself is not above 700", kLoud, 700.0f, "700.0Hz", nullptr, nullptr, false},
        {"up to 1000 recalls the last in-tune result", kLoud, 1000.0f, "440.0Hz", "A4", nullptr, false},
        {"above 1000 clears", kLoud, 1000.5f, "", nullptr, "yellow64.png", false},
    };
    for (const auto& s : steps) {
        const TunerScreenModel before = screen;
        tick(s.level, s.hertz);
        for (const auto& [want, got] : {std::pair{s.label, &screen.freq_label.text},
                                        {s.note, &screen.noteDisplay.text},
                                        {s.lamp, &screen.LEDDisplay.image}})
            EXPECT_TRUE(!want || *got == want) << s.what << ": " << *got;
        EXPECT_TRUE(!s.held || (screen.freq_label == before.freq_label && screen.LEDDisplay == before.LEDDisplay))
            << s.what;
    }
}

// The tick tells the view when the read-out moved, and only then; a tick that
// would draw what is already there draws nothing, unless the read-out was written
// behind its back (the rings cleared on a tuning change).
TEST_F(Tick, RaisesReadoutChangedOnlyWhenTheReadOutMoves) {
    const struct {
        const char* what;
        float level, hertz;
        bool clearRings, changes;
    } steps[] = {
        {"first reading", kLoud, 300.0f, false, true},
        {"the same reading", kLoud, 300.0f, false, false},
        {"a new reading", kLoud, 300.5f, false, true},
        {"in tune", kLoud, 440.0f, false, true},
        {"another estimate in the window", kLoud, 440.4f, false, false},
        {"rings cleared, still in tune", kLoud, 440.4f, true, true},
        {"between the thresholds", 0.003f, 300.0f, false, false},
        {"silence", 0.0f, 0.0f, false, true},
        {"silence again", 0.0f, 0.0f, false, false},
    };
    for (const auto& step : steps) {
        if (step.clearRings)
            controller->removeRings();
        screen.readoutChanged = false;
        tick(step.level, step.hertz);
        EXPECT_EQ(screen.readoutChanged, step.changes) << step.what;
    }
    tick(kLoud, 440.0f);
    controller->removeRings();
    tick(kLoud, 440.0f);
    EXPECT_EQ(screen.ring1.image, "ring1.png") << "a drawing cleared behind the tick's back is drawn again";
}

// The catalogue's irregular rules (a string confirmed through another's slot, a
// pitch shared by two strings) are in the golden outputs: the slots and the names
// shown in `uke tunings`, the rings and beeps in the analyse runs of tunings 2, 10
// and 11.

// The picture each class lights is in the golden analyse runs (phone-480, pad-1194)
// and the end-to-end tests (phone-844); here a class of no table and codes of no string.
TEST_F(Tick, AClassOfNoTableLightsOnlyTheRingAndOtherCodesNothing) {
    setDevice(Idiom::Phone, 900);
    const TunerScreenModel unlit = screen; // the demonstration build starts with its picture
    controller->displayTunedString(2);
    EXPECT_EQ(screen.ring2.image, "ring2.png");
    EXPECT_EQ(screen.tunedString5, unlit.tunedString5) << "a class of no table sets no highlight";
    for (int code : {0, 5, 13}) {
        const TunerScreenModel before = screen;
        controller->displayTunedString(code);
        EXPECT_EQ(screen.ring1, before.ring1);
        EXPECT_EQ(screen.ring4, before.ring4);
    }
}

TEST_F(Tick, EachBeepReArmsEveryStringFifteenSecondsLater) {
    using Armed = std::array<uint8_t, 4>;
    platform.runLoop.advanceTo(100.0); // an arbitrary start
    tick(kLoud, 329.6f);               // string 2 beeps at 100
    platform.runLoop.advanceTo(110.0);
    tick(kLoud, 261.6f); // string 3 at 110
    platform.runLoop.advanceTo(114.999);
    tick(kLoud, 329.6f);
    EXPECT_EQ(beeps(), 2u) << "string 2 is still beeped";
    platform.runLoop.advanceTo(115.0);
    EXPECT_EQ(state.tuningBools, Armed{}) << "the first beep's timer frees every string";
    tick(kLoud, 329.6f);
    EXPECT_EQ(beeps(), 3u);
    platform.runLoop.advanceTo(124.999);
    EXPECT_EQ(state.tuningBools, (Armed{0, 1, 0, 0}));
    platform.runLoop.advanceTo(125.0);
    EXPECT_EQ(state.tuningBools, Armed{}) << "the second beep's timer clears the third beep early";
}

TEST_F(Tick, SoundNotificationOffStillMarksStringsReached) {
    controller->soundNotificationAction(false);
    const size_t pending = platform.runLoop.pendingCount();
    tick(kLoud, 440.0f);
    tick(kLoud, 392.0f);
    EXPECT_EQ(beeps(), 0u);
    EXPECT_EQ(state.firstTuningBools, (std::array<uint8_t, 4>{1, 0, 0, 1}));
    EXPECT_EQ(state.tuningBools, (std::array<uint8_t, 4>{0, 0, 0, 0}));
    EXPECT_EQ(platform.runLoop.pendingCount(), pending) << "no reset is scheduled";
}

// Once every string is reached, each unmatched tick above the upper gate asks for a
// review two seconds later and re-arms the beeps two seconds after that.
TEST_F(Tick, OnceEveryStringIsReachedUnmatchedTicksPromptAtTwoSecondsAndReArmAtFour) {
    platform.store->setInteger(keys::numberOfRuns, 3); // enough runs for the prompt to be asked
    for (float f : {440.0f, 329.6f, 261.6f, 392.0f})
        tick(kLoud, f);
    tick(0.003f, 500.0f); // below the upper gate: nothing is scheduled
    const double start = platform.runLoop.elapsed();
    tick(kLoud, 500.0f);
    const size_t asked = demoModeEnabled ? 0 : 1; // the demonstration build never asks
    const std::pair<double, std::pair<size_t, bool>> times[] = {
        {1.999, {0, true}}, {2.0, {asked, true}}, {3.999, {asked, true}}, {4.0, {asked, false}}};
    for (const auto& [after, seen] : times) {
        platform.runLoop.advanceTo(start + after);
        EXPECT_EQ(std::pair(platform.network.fetched.size(), state.tuningBools[0] == 1), seen) << after;
    }
}

// The 10 ms tick on the run loop: the times of the golden analyse runs' read-outs.

class DemoPicture : public test::TunerFixture {};

// The demonstration build's frozen picture (a table per tuning) is what it shows
// instead of the tuner; here only that the build switch decides. That it neither
// listens nor opens a tone unit, while the fork's labels still change, is the
// load and tuning-fork tests' (they run in both builds).
TEST_F(DemoPicture, TheBuildSwitchDecidesWhetherTheScreenIsLive) {
    launch();
    controller->showNextTuning();
    controller->playA440Hz();
    EXPECT_EQ(platform.log.contains("**** DEMOMODE ACTIVATED ****"), demoModeEnabled);
    if (demoModeEnabled) {
        EXPECT_EQ(screen.noteDisplay.text, "A4");
        EXPECT_EQ(screen.freq_label.text, "440.0Hz");
        state.chosenTuning = 11;
        controller->showNextTuning(); // to 12: the picture keeps its last texts
        EXPECT_TRUE(platform.log.contains("Ahora chosenTuning es: 12"));
    }
}

} // namespace
} // namespace uke
