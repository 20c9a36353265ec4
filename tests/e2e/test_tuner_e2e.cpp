// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
// The whole tuner on real audio: plucks played into a virtual microphone reach the
// running app through its capture path, light the right string and turn the lamp.
#include <chrono>
#include <functional>

#include "support/PulseServerTest.h"
#include "support/RunningApp.h"
#include "support/SyntheticPluck.h"

namespace uke {
namespace {

// On one phone: which view and picture each device class lights is the unit tests'
// and the golden analyse runs' business (pad-1194 among them).
class TunerEndToEnd : public test::PulseServerTest {
protected:
    void SetUp() override {
        test::PulseServerTest::SetUp();
        if (IsSkipped() || HasFatalFailure())
            return;
        app = std::make_unique<test::RunningApp>("phone-844", "en", QString(), test::RunningApp::Audio::Real);
        ASSERT_TRUE(app->started);
        host = app->host.get();
    }
    void TearDown() override {
        // What is left of a pluck would otherwise sound into the next test.
        if (pulse().running())
            pulse().waitMicrophoneDrained(std::chrono::seconds(5));
        app.reset();
    }
    // Two seconds of a plucked string at the microphone's rate.
    static std::vector<int16_t> pluck(double hertz) {
        return test::syntheticPluck(hertz, test::PulseServer::kRate, 2 * test::PulseServer::kRate);
    }
    // Runs the app's event loop until `done` holds or the time is up.
    static bool runUntil(const std::function<bool()>& done, std::chrono::seconds limit = std::chrono::seconds(20)) {
        return test::settleUntil(done, static_cast<int>(std::chrono::milliseconds(limit).count()));
    }
    TunerScreenModel& screen() { return host->tunerModel(); }
    // The class's string highlight.
    ImageView& highlight() { return screen().tunedString5; }

    std::unique_ptr<test::RunningApp> app;
    AppHost* host = nullptr;
};

TEST_F(TunerEndToEnd, PluckedStringsLightUpAndSilenceClearsTheReadOut) {
    runUntil([] { return false; }, std::chrono::seconds(1));
    ASSERT_EQ(screen().LEDDisplay.image, "yellow64.png") << "the quiet microphone lit " << screen().noteDisplay.text;
    EXPECT_TRUE(host->hearing()) << "the virtual microphone was not opened";
    pulse().writeToMicrophone(pluck(440.0));
    ASSERT_TRUE(runUntil([&] { return screen().LEDDisplay.image == "green64.png"; }))
        << "A4 never lit; read-out: " << screen().freq_label.text << "\n"
        << pulse().serverLog();
    EXPECT_EQ(screen().noteDisplay.text, "A4");
    EXPECT_EQ(screen().freq_label.text, "440.0Hz");
    EXPECT_EQ(screen().ring1.image, "ring1.png");
    EXPECT_EQ(highlight().image, "1st_string_6plus.png");
    EXPECT_FALSE(highlight().hidden);

    // The microphone goes quiet: read-outs clear, the lamp turns yellow, the ring stays.
    ASSERT_TRUE(runUntil([&] { return screen().LEDDisplay.image == "yellow64.png"; }))
        << "the lamp never went back to yellow";
    EXPECT_EQ(screen().freq_label.text, "");
    EXPECT_EQ(screen().noteDisplay.text, "");
    EXPECT_TRUE(highlight().hidden);
    EXPECT_EQ(screen().ring1.image, "ring1.png");

    // The next string of the tuning lights its own ring.
    pulse().writeToMicrophone(pluck(329.63));
    ASSERT_TRUE(runUntil([&] { return screen().noteDisplay.text == "E4"; })) << screen().freq_label.text;
    EXPECT_EQ(screen().ring2.image, "ring2.png");
    EXPECT_EQ(screen().ring1.image, "ring1.png");
}

// A microphone pulled out while the player tunes: the read-out says so, and when
// it is plugged in again the tuner hears it with no action from the player.
TEST_F(TunerEndToEnd, UnpluggedMicrophoneIsSaidAndTuningCarriesOnWhenItIsBack) {
    using namespace std::chrono_literals;
    ASSERT_TRUE(runUntil([&] { return host->hearing(); }, 5s));
    ASSERT_TRUE(pulse().unplugMicrophone()) << pulse().serverLog();
    ASSERT_TRUE(runUntil([&] { return !host->hearing(); }, 10s)) << "the app never noticed";
    EXPECT_EQ(host->idleReadout(), "No microphone found");
    EXPECT_EQ(screen().LEDDisplay.image, "yellow64.png");

    ASSERT_TRUE(pulse().plugMicrophone()) << pulse().serverLog();
    ASSERT_TRUE(runUntil([&] { return host->hearing(); }, 10s)) << "the app never listened again";
    EXPECT_EQ(host->idleReadout(), "Pluck a string");
    pulse().writeToMicrophone(pluck(440.0));
    ASSERT_TRUE(runUntil([&] { return screen().LEDDisplay.image == "green64.png"; }))
        << "A4 never lit after the microphone came back; read-out: " << screen().freq_label.text;
}

} // namespace
} // namespace uke
