#include <gtest/gtest.h>

#include "base/SharedState.h"
#include "support/RunningApp.h"
#include "support/SyntheticPluck.h"

namespace uke {
namespace {

using test::RunningApp;

// The window takes the class's size and layout; a height of no table gets the nearest
// one. A plucked A string lights it: the docs' pictures of phone-844 and pad-1194.
TEST(TunerScreen, RendersOnEveryKindOfClass) {
    for (const std::string device : {"phone-480", "phone-844", "phone-900", "pad-1194"}) {
        RunningApp r(device.c_str());
        ASSERT_TRUE(r.started) << device;
        const auto c = *DeviceClass::parse(device);
        EXPECT_EQ(r.window()->size(), QSize(static_cast<int>(c.width), static_cast<int>(c.height))) << device;
        EXPECT_FALSE(r.host->layout().value("name").toString().isEmpty()) << device;
        EXPECT_EQ(r.text("currentTuningName"), "Standard  G C E A") << device;
        for (int block = 0; block < 3 && !demoModeEnabled; ++block)
            ASSERT_TRUE(r.capture->deliver(test::syntheticPluck(440.0, 14039.0, 4096)));
        test::saveForDocs(r.grab(), ("tuner-lit-" + device + ".png").c_str());
    }
}

// The arrows reach their actions; the note takes the lamp's colour when the core says "in tune".
TEST(TunerScreen, ArrowsAndTheInTuneLookAreWired) {
    RunningApp r;
    ASSERT_TRUE(r.started);
    for (const char* arrow : {"showNextTuningButton", "showNextTuningButton", "showPreviousTuningButton"})
        r.tap(arrow);
    EXPECT_EQ(r.host->state().chosenTuning, 2);
    EXPECT_EQ(r.text("currentTuningName").toStdString(), r.host->tunerModel().currentTuningName.text);
    const auto noteColourWith = [&](bool green) {
        r.host->tunerModel().lightLamp(green);
        r.host->sync();
        return std::pair{r.host->inTune(), r.item("noteDisplay")->property("color")};
    };
    const auto [inTune, tunedColour] = noteColourWith(true);
    const auto [notInTune, plainColour] = noteColourWith(false);
    EXPECT_TRUE(inTune && !notInTune);
    EXPECT_NE(tunedColour, plainColour);
}

// The tick runs a hundred times a second, but a read-out that holds still (the same
// block, or a new estimate inside the in-tune window) draws no frame at all.
TEST(TunerScreen, DrawsOnlyWhenTheReadOutChanges) {
    if (demoModeEnabled)
        GTEST_SKIP() << "the demonstration picture never changes";
    RunningApp r;
    ASSERT_TRUE(r.started);
    int frames = 0;
    QObject::connect(r.window(), &QQuickWindow::frameSwapped, [&] { ++frames; });
    const auto a4 = [](double hertz) { return test::syntheticPluck(hertz, 14039.0, 4096); };
    const struct {
        const char* what;
        std::vector<int16_t> block;
        bool changes;
    } steps[] = {{"in tune", a4(440.0), true},
                 {"the same block again", a4(440.0), false},
                 {"another estimate in the window", a4(440.4), false},
                 {"silence", std::vector<int16_t>(4096, 0), true}};
    for (const auto& step : steps) {
        frames = 0;
        ASSERT_TRUE(r.capture->deliver(step.block)) << step.what;
        test::settle(300);
        EXPECT_EQ(frames > 0, step.changes) << step.what;
        frames = 0;
        test::settle(400);
        EXPECT_EQ(frames, 0) << step.what << ": still drawing while nothing changes";
    }
    EXPECT_EQ(r.host->tunerModel().LEDDisplay.image, "yellow64.png");
}

} // namespace
} // namespace uke
