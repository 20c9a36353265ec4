// The whole tuner on real audio: plucks played into a virtual microphone reach the
// running app through its capture path, light the right string and turn the lamp.
#include <QCoreApplication>
#include <QQuickWindow>
#include <QTemporaryDir>
#include <chrono>
#include <cmath>
#include <functional>

#include "AppHost.h"
#include "support/PulseServer.h"
#include "support/QtApp.h"
#include "support/SyntheticPluck.h"

namespace uke {
namespace {

class TunerEndToEnd : public test::PulseServerTest, public ::testing::WithParamInterface<const char*> {
protected:
    void SetUp() override {
        test::PulseServerTest::SetUp();
        if (IsSkipped() || HasFatalFailure())
            return;
        test::ensureQtApp();
        AppHost::Options o;
        o.device = *DeviceClass::parse(GetParam());
        o.settingsPath = dir.filePath("settings.ini");
        o.language = "en";
        o.quietLog = true;
        host = std::make_unique<AppHost>(o);
        ASSERT_TRUE(host->start());
    }
    void TearDown() override {
        // What is left of a pluck would otherwise sound into the next test.
        if (pulse().running())
            pulse().waitMicrophoneDrained(std::chrono::seconds(5));
        host.reset();
    }
    // Runs the app's event loop until `done` holds or the deadline passes.
    bool runUntil(const std::function<bool()>& done, std::chrono::seconds deadline = std::chrono::seconds(20)) {
        const auto end = std::chrono::steady_clock::now() + deadline;
        while (std::chrono::steady_clock::now() < end) {
            QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
            if (done())
                return true;
        }
        return false;
    }
    TunerScreenModel& screen() { return host->tunerModel(); }
    // The view that carries the string highlight on this device class.
    ImageView& highlight() {
        const DeviceClass c = *DeviceClass::parse(GetParam());
        switch (highlightFor(c.idiom, c.height)->view) {
        case HighlightView::TunedString: return screen().tunedString;
        case HighlightView::TunedString5: return screen().tunedString5;
        case HighlightView::TunedStringiPad: return screen().tunedStringiPad;
        }
        return screen().tunedString;
    }
    std::string highlightImage(std::string_view prefix) {
        const DeviceClass c = *DeviceClass::parse(GetParam());
        return std::string(prefix) + std::string(highlightFor(c.idiom, c.height)->suffix);
    }

    QTemporaryDir dir;
    std::unique_ptr<AppHost> host;
};

TEST_P(TunerEndToEnd, PluckedStringsLightUpAndSilenceClearsTheReadOut) {
    runUntil([] { return false; }, std::chrono::seconds(1));
    ASSERT_EQ(screen().LEDDisplay.image, "yellow64.png") << "the quiet microphone lit " << screen().noteDisplay.text;
    EXPECT_TRUE(host->hearing()) << "the virtual microphone was not opened";
    pulse().writeToMicrophone(test::syntheticPluck(440.0, 44100.0, 2 * 44100), 44100);
    ASSERT_TRUE(runUntil([&] { return screen().LEDDisplay.image == "green64.png"; }))
        << "A4 never lit; read-out: " << screen().freq_label.text << "\n"
        << pulse().serverLog();
    EXPECT_EQ(screen().noteDisplay.text, "A4");
    EXPECT_EQ(screen().freq_label.text, "440.0Hz");
    EXPECT_EQ(screen().ring1.image, "ring1.png");
    EXPECT_EQ(highlight().image, highlightImage("1st"));
    EXPECT_FALSE(highlight().hidden);

    // The docs' picture of the lit screen.
    QCoreApplication::processEvents();
    if (const QByteArray docs = qgetenv("UKE_DOCS_DIR"); !docs.isEmpty())
        host->window()->grabWindow().save(QString::fromLocal8Bit(docs) + "/tuner-lit-" + GetParam() + ".png");

    // The microphone goes quiet: read-outs clear, the lamp turns yellow, the ring stays.
    ASSERT_TRUE(runUntil([&] { return screen().LEDDisplay.image == "yellow64.png"; }))
        << "the lamp never went back to yellow";
    EXPECT_EQ(screen().freq_label.text, "");
    EXPECT_EQ(screen().noteDisplay.text, "");
    EXPECT_TRUE(highlight().hidden);
    EXPECT_EQ(screen().ring1.image, "ring1.png");

    // The next string of the tuning lights its own ring.
    pulse().writeToMicrophone(test::syntheticPluck(329.63, 44100.0, 2 * 44100), 44100);
    ASSERT_TRUE(runUntil([&] { return screen().noteDisplay.text == "E4"; })) << screen().freq_label.text;
    EXPECT_EQ(screen().ring2.image, "ring2.png");
    EXPECT_EQ(screen().ring1.image, "ring1.png");
}

INSTANTIATE_TEST_SUITE_P(Devices, TunerEndToEnd, ::testing::Values("phone-844", "pad-1194"), [](const auto& info) {
    std::string name = info.param;
    std::erase(name, '-');
    return name;
});

// A microphone pulled out while the player tunes: the read-out says so, and when
// it is plugged in again the tuner hears it with no action from the player.
class MicrophoneUnplugged : public TunerEndToEnd {};

TEST_P(MicrophoneUnplugged, ReadOutSaysSoAndTuningCarriesOnWhenItIsBack) {
    using namespace std::chrono_literals;
    ASSERT_TRUE(runUntil([&] { return host->hearing(); }, 5s));
    ASSERT_TRUE(pulse().unplugMicrophone()) << pulse().serverLog();
    ASSERT_TRUE(runUntil([&] { return !host->hearing(); }, 10s)) << "the app never noticed";
    EXPECT_EQ(host->idleReadout(), "No microphone found");
    EXPECT_EQ(screen().LEDDisplay.image, "yellow64.png");

    ASSERT_TRUE(pulse().plugMicrophone()) << pulse().serverLog();
    ASSERT_TRUE(runUntil([&] { return host->hearing(); }, 10s)) << "the app never listened again";
    EXPECT_EQ(host->idleReadout(), "Pluck a string");
    pulse().writeToMicrophone(test::syntheticPluck(440.0, 44100.0, 2 * 44100), 44100);
    ASSERT_TRUE(runUntil([&] { return screen().LEDDisplay.image == "green64.png"; }))
        << "A4 never lit after the microphone came back; read-out: " << screen().freq_label.text;
}

INSTANTIATE_TEST_SUITE_P(Phone, MicrophoneUnplugged, ::testing::Values("phone-844"), [](const auto&) {
    return std::string("phone844");
});

} // namespace
} // namespace uke
