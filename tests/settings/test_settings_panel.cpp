// The settings and about panels of the tuner screen.
#include <gtest/gtest.h>

#include "base/SettingsKeys.h"
#include "support/TunerFixture.h"

namespace uke {
namespace {

using SettingsPanel = test::TunerFixture;

struct SliderCase {
    float reading;
    long stepInUse;
    double shown; // the slider after snapping
    long stored;
    double bottom, top;
};

// The log lines of a move and of every switch are in the golden screen outputs.
TEST_F(SettingsPanel, SliderSnapsStoresAndSetsTheThresholds) {
    const SliderCase cases[] = {
        {0.0f, 0, 0.0, 0, 0.007, 0.0095}, {4.6f, 4, 5.0, 5, 0.003, 0.0055}, {4.5f, 4, 5.0, 5, 0.003, 0.0055},
        {5.0f, 5, 5.0, 5, 0.002, 0.0045}, {7.0f, 7, 7.0, 7, 0.002, 0.0045}, {10.0f, 10, 10.0, 10, 0.002, 0.0045},
        {0.4f, 0, 0.0, 0, 0.007, 0.0095}, {3.0f, 3, 3.0, 3, 0.004, 0.0065},
    };
    launch();
    for (const SliderCase& c : cases) {
        SCOPED_TRACE(c.reading);
        const int syncs = platform.memoryStore.synchronizeCount;
        controller->micSensitivity(c.reading);
        EXPECT_EQ(state.micSensitivityValue, c.stepInUse);
        EXPECT_EQ(screen.micSensitivitySlider.value, c.shown);
        EXPECT_EQ(platform.memoryStore.integerForKey(keys::savedSliderValue), c.stored);
        EXPECT_EQ(platform.memoryStore.synchronizeCount, syncs + 1);
        EXPECT_EQ(state.bottomLimit, c.bottom);
        EXPECT_EQ(state.topLimit, c.top);
    }
}

TEST_F(SettingsPanel, SliderBeyondTenIsStoredButMovesNoThreshold) {
    launch();
    controller->micSensitivity(0.0f);
    controller->micSensitivity(11.0f);
    EXPECT_EQ(state.micSensitivityValue, 11);
    EXPECT_EQ(platform.memoryStore.integerForKey(keys::savedSliderValue), 11);
    EXPECT_EQ(state.bottomLimit, 0.007);
    EXPECT_EQ(state.topLimit, 0.0095);
    // Compared unsigned, a step below zero is no step either.
    controller->micSensitivity(-2.0f);
    EXPECT_EQ(state.micSensitivityValue, -2);
    EXPECT_EQ(state.bottomLimit, 0.007);
}

TEST_F(SettingsPanel, StepperShowsAndStoresAtOnceButRetunesOnlyAtTheNextAppearance) {
    launch();
    controller->setFrequencyValue(442.9);
    EXPECT_EQ(screen.calibrationFrequencyValue.text, "442");
    EXPECT_EQ(state.a4Calibration, 442);
    // Changing tuning rewrites the chart from the old targets.
    controller->showNextTuning();
    controller->showPreviousTuning();
    EXPECT_EQ(screen.firstStringNoteAndFreq.text, "A4 = 440.0Hz");
    EXPECT_EQ(state.targets[Pitch::A4].target, 440.0);
    controller->viewWillAppear();
    EXPECT_EQ(screen.firstStringNoteAndFreq.text, "A4 = 442.0Hz");
    // The stepper stays within its own range.
    for (const auto& [asked, kept] : {std::pair{470.0, 466L}, {400.0, 415L}, {466.0, 466L}}) {
        controller->setFrequencyValue(asked);
        EXPECT_EQ(state.a4Calibration, kept) << asked;
        EXPECT_EQ(screen.setFrequencyValueStepper.value, static_cast<double>(kept)) << asked;
    }
}

TEST_F(SettingsPanel, ChartOffKeepsThePreviousTuningsChartAcrossAChange) {
    // The demonstration picture rewrites the strings and the lamp at every tick.
    if (demoModeEnabled)
        GTEST_SKIP();
    launch();
    controller->toggleFreqChart(false);
    controller->showNextTuning();
    controller->showNextTuning();
    EXPECT_EQ(screen.firstString.text, "B4");
    EXPECT_EQ(screen.firstStringNoteAndFreq.text, "A4 = 440.0Hz");
    // Turning it on writes nothing by itself; the next letter pass does.
    controller->toggleFreqChart(true);
    EXPECT_TRUE(state.frequencyChartOn);
    EXPECT_EQ(platform.memoryStore.integerForKey(keys::frequencyChartEnabled), 1);
    EXPECT_EQ(platform.log.lines.back(), "Frequency chart IS enabled: 1");
    EXPECT_EQ(screen.firstStringNoteAndFreq.text, "A4 = 440.0Hz");
    controller->showPreviousTuning();
    EXPECT_EQ(screen.fourthStringNoteAndFreq.text, "D3 = 146.8Hz");
}

TEST_F(SettingsPanel, CaptionsAndAboutTextsComeFromTheMainTable) {
    platform.strings.set("MicSensitivityTitle", "Mic");
    platform.strings.set("FrequencyChartTitle", "wrong table", "RatingPromptLocalizable");
    launch();
    EXPECT_EQ(screen.micSensitivityLabel.text, "Mic");
    EXPECT_EQ(screen.frequencyChartLabel.text, "");
    EXPECT_EQ(screen.aboutMsg2.text, "");
    // A step forward does not refresh the captions; a step back does.
    platform.strings.set("MicSensitivityTitle", "Microphone");
    controller->showNextTuning();
    EXPECT_EQ(screen.micSensitivityLabel.text, "Mic");
    controller->showPreviousTuning();
    EXPECT_EQ(screen.micSensitivityLabel.text, "Microphone");
}

} // namespace
} // namespace uke
