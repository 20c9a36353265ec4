// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/SettingsKeys.h"
#include "base/StringTargetTable.h"
#include "base/TuningCatalogue.h"
#include "support/TunerFixture.h"

namespace uke {
namespace {

using test::TunerFixture;

// Every target and window at 440 and 442 Hz is compared exactly with `uke tunings`
// in the tool's golden outputs; here only what those cannot show.
TEST(StringTargets, ZeroUntilTheFirstRecomputeAndWindowsIncludeTheirEdges) {
    StringTargetTable t;
    EXPECT_EQ(t[Pitch::A4].target, 0.0);
    EXPECT_TRUE(t[Pitch::A4].contains(0.0)) << "before any calibration only 0 Hz matches";
    t.recompute(440.0);
    EXPECT_TRUE(t[Pitch::A4].contains(t[Pitch::A4].low()) && t[Pitch::A4].contains(t[Pitch::A4].high()));
}

class Navigation : public TunerFixture {};

// Titles, icons and arrows at tunings 1, 2, 5 and 6, on phones and pads, are in the
// golden screen outputs.
TEST_F(Navigation, ChartFamilyRulesAreOneSidedForwardAndTheLastTuningHidesTheNextArrow) {
    platform.strings.set("TuningFreeTitle5", "Baritone");
    launch();
    const std::vector<int64_t> expectedForward = {1, 1, 1, 2, 2, 2, 2, 2, 3, 4}; // types of tunings 2..11
    for (size_t i = 0; i < expectedForward.size(); ++i) {
        controller->showNextTuning();
        EXPECT_EQ(state.chosenUkuleleType, expectedForward[i]) << "tuning " << state.chosenTuning;
        if (state.chosenTuning == 5) {
            EXPECT_EQ(screen.currentTuningName.text, "Baritone");
            EXPECT_EQ(screen.goToChordsLibraryButton.image, "chord_icon_b.png");
        } else if (state.chosenTuning == 6) {
            EXPECT_EQ(screen.currentTuningName.text, "") << "a missing key gives the empty text";
        }
    }
    EXPECT_EQ(state.chosenTuning, 11);
    EXPECT_TRUE(screen.showNextTuningButton.hidden);
    EXPECT_EQ(screen.goToChordsLibraryButton.image, "chord_icon_slb.png");
    controller->showPreviousTuning();
    EXPECT_FALSE(screen.showNextTuningButton.hidden);
    EXPECT_EQ(state.chosenUkuleleType, 3);
    EXPECT_EQ(screen.goToChordsLibraryButton.image, "chord_sl_icon.png");

    // Backward is exact: 7 -> 6 gives the standard chart although 6 was reached as baritone.
    state.chosenTuning = 7;
    state.chosenUkuleleType = 2;
    controller->showPreviousTuning();
    EXPECT_EQ(state.chosenTuning, 6);
    EXPECT_EQ(state.chosenUkuleleType, 1);
    controller->showPreviousTuning();
    EXPECT_EQ(state.chosenUkuleleType, 2) << "5 is baritone";
}

// A device of neither idiom never comes: every front end names a phone or a pad
// (DeviceClass::parse, the page's deviceOf).
TEST_F(Navigation, RingsGoAfterTheActionReturns) {
    launch();
    controller->displayTunedString(1);
    controller->displayTunedString(3);
    controller->showNextTuning();
    EXPECT_EQ(screen.ring1.image, "ring1.png") << "removal is a zero-delay message";
    platform.runLoop.runPending();
    EXPECT_EQ(screen.ring1.image, "");
    EXPECT_EQ(screen.ring3.image, "");
    EXPECT_EQ(state.ringShown, (std::array<uint8_t, 4>{0, 0, 0, 0}));
}

class Appearance : public test::TunerFixture {};

// The seeded values, the run count and the logs of a first launch and of the next
// appearance are in the tool's golden screen outputs; here the wipe and what they cannot show.
TEST_F(Appearance, FirstLaunchWipesSeedsAndLeavesTheControlsAsTheyWere) {
    platform.memoryStore.setInteger("chordsSearched", 12);
    platform.memoryStore.setInteger(keys::kRatingPromptUseCount, 7);
    state.micSensitivityValue = 3;
    launch();
    auto& st = platform.memoryStore;
    EXPECT_FALSE(st.hasKey("chordsSearched"));
    EXPECT_FALSE(st.hasKey(keys::kRatingPromptUseCount));
    EXPECT_FALSE(st.hasKey(keys::currentlyUsingTuningFork));
    EXPECT_EQ(st.synchronizeCount, 2) << "once after the seven values, once after the marker";
    EXPECT_EQ(state.micSensitivityValue, 3);
    EXPECT_EQ(state.a4Calibration, 0) << "only a returning launch loads the calibration into memory";
}

TEST_F(Appearance, ReturningLaunchRestoresWithItsDeliberateLeftovers) {
    launch();
    auto& st = platform.memoryStore;
    st.setBool(keys::frequencyChartEnabled, false);
    st.setInteger(keys::savedSliderValue, 0);
    st.setBool(keys::stringSoundsEnabled, true);
    st.setInteger(keys::currentlyUsingTuningFork, 1);
    st.setInteger(keys::savedA4Calibration, 5);
    rebuild();
    launch();

    EXPECT_FALSE(screen.freqChartSwitch.on);
    EXPECT_TRUE(state.frequencyChartOn) << "the chart keeps being written until the switch is flipped";
    EXPECT_EQ(screen.firstStringNoteAndFreq.text, "A4 = 5.0Hz");
    EXPECT_EQ(screen.micSensitivitySlider.value, 0.0);
    EXPECT_EQ(state.micSensitivityValue, 0);
    EXPECT_EQ(state.bottomLimit, 0.002) << "thresholds wait for the slider to move";
    EXPECT_EQ(state.topLimit, 0.0045);
    EXPECT_TRUE(state.stringSoundsOn);
    EXPECT_TRUE(screen.stringSoundsSwitch.on);
    EXPECT_TRUE(screen.soundNotificationSwitch.on);
    EXPECT_FALSE(state.soundNotificationOn) << "the tuning fork in use silences the beep";
    EXPECT_EQ(screen.calibrationFrequencyValue.text, "05");
    EXPECT_EQ(state.a4Calibration, 5);
}

TEST_F(Appearance, OddStoredSwitchValuesAreIgnored) {
    launch();
    platform.memoryStore.setInteger(keys::soundNotificationEnabled, 7);
    platform.memoryStore.setInteger(keys::frequencyChartEnabled, 2);
    state.soundNotificationOn = false;
    screen.freqChartSwitch.on = false;
    controller->viewWillAppear();
    EXPECT_FALSE(state.soundNotificationOn);
    EXPECT_FALSE(screen.freqChartSwitch.on);
}

TEST_F(Appearance, LoadStartsListeningOnceAndHidesTheForkBeforeSystemSix) {
    launch();
    EXPECT_EQ(listener.listenCount, demoModeEnabled ? 0 : 1);
    // The screen stays lit while it listens; the frozen picture leaves the device alone.
    EXPECT_EQ(platform.idleTimer.disabled, !demoModeEnabled);
    EXPECT_FALSE(screen.tuningForkButton.hidden);

    rebuild();
    platform.device.version = "5.1";
    launch();
    EXPECT_EQ(screen.tuningForkButton.hidden, !demoModeEnabled) << "no tuning fork before system 6";
}

} // namespace
} // namespace uke
