#include <gtest/gtest.h>

#include "base/SharedState.h"
#include "support/RunningApp.h"

namespace uke {
namespace {

using test::RunningApp;

TEST(TunerScreen, RendersOnPhoneAndPadClasses) {
    for (const char* device : {"phone-667", "phone-844", "pad-1194", "phone-480"}) {
        RunningApp r(device);
        ASSERT_TRUE(r.started) << device;
        const auto c = *DeviceClass::parse(device);
        EXPECT_EQ(r.window()->width(), static_cast<int>(c.width)) << device;
        EXPECT_EQ(r.window()->height(), static_cast<int>(c.height)) << device;
        EXPECT_GT(test::varied(r.grab()), 0.05) << device << " looks blank";

        QQuickItem* next = r.item("showNextTuningButton");
        QQuickItem* prev = r.item("showPreviousTuningButton");
        ASSERT_TRUE(next && prev);
        EXPECT_TRUE(next->isVisible());
        EXPECT_FALSE(prev->isVisible()) << "no previous arrow on tuning 1";
        EXPECT_EQ(r.text("currentTuningName"), "Standard  G C E A");
    }
}

TEST(TunerScreen, ArrowsStepThroughTheTuningsOnScreen) {
    RunningApp r;
    ASSERT_TRUE(r.started);
    for (int i = 0; i < 10; ++i)
        r.tap("showNextTuningButton");
    EXPECT_FALSE(r.item("showNextTuningButton")->isVisible());
    EXPECT_TRUE(r.item("showPreviousTuningButton")->isVisible());
    EXPECT_EQ(r.text("currentTuningName"), "Open G  D G B D");
}

TEST(TunerScreen, HeightOfNoTableStillGetsAUsableWindow) {
    RunningApp r("phone-900");
    ASSERT_TRUE(r.started);
    EXPECT_EQ(r.window()->height(), 900);
    EXPECT_EQ(r.host->layout().value("name").toString(), "Main_iPhoneXSMax");
    EXPECT_GT(test::varied(r.grab()), 0.05);
}

TEST(TunerScreen, ReadOutSaysWhetherTheMicrophoneIsHeard) {
    if (demoModeEnabled)
        GTEST_SKIP() << "the demonstration picture fills the read-out";
    for (const bool microphone : {true, false}) {
        RunningApp r("phone-844", "en", {}, {},
                     microphone ? RunningApp::Audio::Virtual : RunningApp::Audio::NoMicrophone);
        ASSERT_TRUE(r.started);
        EXPECT_EQ(r.host->hearing(), microphone);
        EXPECT_EQ(r.text("freq_label"), microphone ? "Pluck a string" : "No microphone found");
    }
}

} // namespace
} // namespace uke
