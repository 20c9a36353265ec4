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
    void selectTuning(int n) {
        while (state.chosenTuning < n)
            controller->showNextTuning();
        platform.runLoop.runPending();
    }
};

TEST_F(Tick, LevelGatesAtTheirExactEdges) {
    tick(kLoud, 441.2f);
    const TunerScreenModel lit = screen;
    EXPECT_EQ(lit.LEDDisplay.image, "green64.png");

    // Between the thresholds, both included at the top: nothing changes.
    for (float p : {0.003f, 0.0045f, 0.002f}) {
        tick(p, 300.0f);
        EXPECT_EQ(screen.freq_label, lit.freq_label) << p;
        EXPECT_EQ(screen.LEDDisplay, lit.LEDDisplay) << p;
    }
    // Just below the lower threshold clears the read-outs (what a clear shows: the golden analyse runs).
    tick(0.0019f, 441.2f);
    EXPECT_EQ(screen.freq_label.text, "");
    EXPECT_EQ(screen.LEDDisplay.image, "yellow64.png");

    // A level that is not a number fails the lower gate and clears like silence.
    tick(kLoud, 441.2f);
    tick(std::numeric_limits<float>::quiet_NaN(), 300.0f);
    EXPECT_EQ(screen.LEDDisplay.image, "yellow64.png");
    EXPECT_EQ(screen.freq_label.text, "");
}

// In tune, the exact target shows and one beep sounds: the golden analyse runs.
TEST_F(Tick, JustOutsideTheWindowShowsTheMeasurementButKeepsTheNote) {
    tick(kLoud, 441.2f);
    EXPECT_EQ(screen.freq_label.text, "440.0Hz");
    tick(kLoud, 441.3f);
    EXPECT_EQ(screen.freq_label.text, "441.3Hz") << "just outside the window shows the measurement";
    EXPECT_EQ(screen.noteDisplay.text, "A4") << "the note keeps its last text";
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

TEST_F(Tick, HighReadingsRecallTheLastInTuneResultUpToAThousand) {
    tick(kLoud, 1000.0f);
    EXPECT_EQ(screen.freq_label.text, "") << "above 700 with nothing tuned yet recalls the empty texts";
    tick(kLoud, 440.0f);
    tick(kLoud, 335.0f);
    EXPECT_EQ(screen.freq_label.text, "335.0Hz");
    tick(kLoud, 700.0f);
    EXPECT_EQ(screen.freq_label.text, "700.0Hz") << "700 itself is not above 700";
    tick(kLoud, 1000.0f);
    EXPECT_EQ(screen.freq_label.text, "440.0Hz") << "1000.0 passes the gate";
    EXPECT_EQ(screen.noteDisplay.text, "A4");
    tick(kLoud, 1000.5f);
    EXPECT_EQ(screen.freq_label.text, "");
    EXPECT_EQ(screen.LEDDisplay.image, "yellow64.png");
}

// The tool's golden analyse runs show the highlights, rings and beeps of tunings 2,
// 10 and 11; here the slots they confirm, the ring pictures and tuning 8's note text.
TEST_F(Tick, IrregularRulesOfTheCatalogue) {
    selectTuning(2);
    tick(kLoud, 196.0f);
    EXPECT_EQ(state.firstTuningBools, (std::array<uint8_t, 4>{0, 0, 1, 0})) << "confirmed through slot 3";

    selectTuning(8);
    tick(kLoud, 415.3f);
    EXPECT_EQ(screen.noteDisplay.text, "GS4");

    selectTuning(10);
    state.firstTuningBools = {};
    tick(kLoud, 392.0f);
    EXPECT_EQ(screen.ring1.image, "ring1.png");
    EXPECT_EQ(screen.ring4.image, "ring1.png") << "a shared outer pitch lights both pegs with the first ring";
    EXPECT_EQ(state.ringShown, (std::array<uint8_t, 4>{1, 0, 0, 1}));
    EXPECT_EQ(state.firstTuningBools, (std::array<uint8_t, 4>{1, 0, 0, 0})) << "slot 1 only";
}

TEST_F(Tick, HighlightPictureFollowsTheDeviceClass) {
    const std::vector<std::tuple<Idiom, double, std::string, const ImageView TunerScreenModel::*>> rows = {
        {Idiom::Phone, 568, "2nd_string_5.png", &TunerScreenModel::tunedString5},
        {Idiom::Pad, 1024, "2nd_string_iPad.png", &TunerScreenModel::tunedStringiPad},
        {Idiom::Pad, 1376, "2nd_string_iPad_Pro.png", &TunerScreenModel::tunedStringiPad},
    };
    for (const auto& [idiom, height, image, view] : rows) {
        screen = TunerScreenModel{};
        setDevice(idiom, height);
        controller->displayTunedString(2);
        EXPECT_EQ((screen.*view).image, image) << height;
    }
    screen = TunerScreenModel{};
    setDevice(Idiom::Phone, 900);
    controller->displayTunedString(2);
    EXPECT_EQ(screen.ring2.image, "ring2.png");
    EXPECT_EQ(screen.tunedString5.image, "") << "a class of no table sets no highlight";
    for (int code : {0, 5, 13}) {
        const TunerScreenModel before = screen;
        controller->displayTunedString(code);
        EXPECT_EQ(screen.ring1, before.ring1);
        EXPECT_EQ(screen.ring4, before.ring4);
    }
}

TEST_F(Tick, BeepsReArmAllStringsFifteenSecondsAfterEachBeep) {
    platform.runLoop.advanceTo(100.0); // an arbitrary start
    tick(kLoud, 329.6f);               // string 2 at t = 0
    EXPECT_EQ(beeps(), 1u);
    platform.runLoop.advanceBy(10.0);
    tick(kLoud, 261.6f); // string 3 at t = 10
    EXPECT_EQ(beeps(), 2u);
    tick(kLoud, 329.6f);
    EXPECT_EQ(beeps(), 2u) << "string 2 is still beeped";
    platform.runLoop.advanceBy(5.0); // t = 15: the first reset frees every string
    EXPECT_EQ(state.tuningBools, (std::array<uint8_t, 4>{0, 0, 0, 0}));
    tick(kLoud, 329.6f);
    EXPECT_EQ(beeps(), 3u);
    platform.runLoop.advanceBy(10.0); // t = 25: the second reset clears the new beep early
    EXPECT_EQ(state.tuningBools, (std::array<uint8_t, 4>{0, 0, 0, 0}));
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

TEST_F(Tick, OnceEveryStringIsReachedEachUnmatchedTickSchedulesAPromptAndAReset) {
    for (float f : {440.0f, 329.6f, 261.6f, 392.0f})
        tick(kLoud, f);
    const size_t pending = platform.runLoop.pendingCount();
    tick(kLoud, 500.0f);
    tick(kLoud, 500.0f);
    EXPECT_EQ(platform.runLoop.pendingCount(), pending + 4);
    tick(0.003f, 500.0f);
    EXPECT_EQ(platform.runLoop.pendingCount(), pending + 4) << "not below the upper gate";
}

TEST_F(Tick, TheTimerTicksEveryTenMillisecondsOnTheRunLoop) {
    if (demoModeEnabled)
        GTEST_SKIP() << "no timer in demonstration mode";
    listener.set(kLoud, 440.0f);
    platform.runLoop.advanceTo(0.005);
    EXPECT_EQ(screen.noteDisplay.text, "");
    advance(0.005);
    EXPECT_EQ(screen.noteDisplay.text, "A4");
    listener.set(0.0f, 0.0f);
    advance(0.01);
    EXPECT_EQ(screen.noteDisplay.text, "");
}

class DemoPicture : public test::TunerFixture {};

TEST_F(DemoPicture, FixedPictureForEveryTuningIgnoresCalibration) {
    setDevice(Idiom::Phone, 844);
    platform.memoryStore.setBool(keys::NewLaunchOrvel, true);
    platform.memoryStore.setInteger(keys::savedA4Calibration, 442);
    launch();
    const std::vector<std::pair<const char*, const char*>> pictures = {
        {"A4", "440.0Hz"}, {"A4", "440.0Hz"},  {"B4", "493.9Hz"}, {"B4", "493.9Hz"},
        {"E4", "329.6Hz"}, {"G#4", "415.3Hz"}, {"G4", "392.0Hz"}, {"A#4", "466.2Hz"},
        {"B4", "493.9Hz"}, {"G4", "392.0Hz"},  {"D3", "146.8Hz"}};
    for (int n = 1; n <= 11; ++n) {
        state.chosenTuning = n;
        controller->demoMode();
        EXPECT_EQ(screen.noteDisplay.text, pictures[n - 1].first) << n;
        EXPECT_EQ(screen.freq_label.text, pictures[n - 1].second) << n;
        EXPECT_EQ(screen.ring1.image, "ring1.png");
        EXPECT_FALSE(screen.tunedString.hidden);
        EXPECT_FALSE(screen.tunedStringiPad.hidden);
        EXPECT_EQ(screen.tunedString5.image, "1st_string_6plus.png");
        EXPECT_EQ(screen.LEDDisplay.image, "green64.png");
        EXPECT_EQ(screen.LEDDisplay128.image, "green128.png");
    }
    EXPECT_TRUE(platform.log.contains("**** DEMOMODE ACTIVATED ****"));
}

TEST_F(DemoPicture, TheBuildSwitchDecidesWhetherTheScreenIsLive) {
    launch();
    controller->showNextTuning();
    controller->playA440Hz();
    const bool demoLogged = platform.log.contains("**** DEMOMODE ACTIVATED ****");
    EXPECT_EQ(demoLogged, demoModeEnabled);
    EXPECT_EQ(listener.listenCount, demoModeEnabled ? 0 : 1);
    EXPECT_EQ(platform.output.setupCount, demoModeEnabled ? 0 : 1) << "no tone unit in demonstration mode";
    EXPECT_EQ(platform.output.startCount, demoModeEnabled ? 0 : 1);
    EXPECT_EQ(screen.tfnoteDisplay.text, "A4") << "labels change either way";
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
