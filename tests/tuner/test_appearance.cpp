#include "base/SettingsKeys.h"
#include "support/TunerFixture.h"

namespace uke {
namespace {

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
