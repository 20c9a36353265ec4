#include <gtest/gtest.h>

#include <QGuiApplication>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTemporaryDir>

#include "AppHost.h"
#include "support/QtApp.h"

namespace uke {
namespace {

struct Rendered {
    explicit Rendered(const char* device) {
        AppHost::Options o;
        o.device = *DeviceClass::parse(device);
        o.settingsPath = dir.filePath("settings.ini");
        o.quietLog = true;
        o.language = "en";
        host = std::make_unique<AppHost>(o);
    }
    QQuickItem* item(const char* name) const {
        return host->window() ? host->window()->findChild<QQuickItem*>(name) : nullptr;
    }
    QTemporaryDir dir;
    std::unique_ptr<AppHost> host;
};

// Share of pixels that differ from the top-left one: a blank window scores near 0.
double varied(const QImage& img) {
    const QRgb bg = img.pixel(0, 0);
    long differ = 0;
    for (int y = 0; y < img.height(); y += 2)
        for (int x = 0; x < img.width(); x += 2)
            differ += img.pixel(x, y) != bg;
    return static_cast<double>(differ) / ((img.width() / 2) * (img.height() / 2));
}

TEST(TunerScreen, RendersOnPhoneAndPadClasses) {
    test::ensureQtApp();
    for (const char* device : {"phone-667", "phone-844", "pad-1194", "phone-480"}) {
        Rendered r(device);
        ASSERT_TRUE(r.host->start()) << device;
        QQuickWindow* w = r.host->window();
        ASSERT_NE(w, nullptr);
        const auto c = *DeviceClass::parse(device);
        EXPECT_EQ(w->width(), static_cast<int>(c.width)) << device;
        EXPECT_EQ(w->height(), static_cast<int>(c.height)) << device;
        QCoreApplication::processEvents();
        const QImage img = w->grabWindow();
        ASSERT_FALSE(img.isNull());
        EXPECT_GT(varied(img), 0.05) << device << " looks blank";

        QQuickItem* next = r.item("showNextTuningButton");
        QQuickItem* prev = r.item("showPreviousTuningButton");
        ASSERT_TRUE(next && prev);
        EXPECT_TRUE(next->isVisible());
        EXPECT_FALSE(prev->isVisible()) << "no previous arrow on tuning 1";
        QQuickItem* title = r.item("currentTuningName");
        ASSERT_TRUE(title);
        EXPECT_EQ(title->property("text").toString(), "Standard  G C E A");
    }
}

TEST(TunerScreen, ArrowsStepThroughTheTuningsOnScreen) {
    test::ensureQtApp();
    Rendered r("phone-844");
    ASSERT_TRUE(r.host->start());
    for (int i = 0; i < 10; ++i)
        r.host->tunerAction("showNextTuning");
    QCoreApplication::processEvents();
    EXPECT_FALSE(r.item("showNextTuningButton")->isVisible());
    EXPECT_EQ(r.item("currentTuningName")->property("text").toString(), "Open G  D G B D");
    EXPECT_EQ(r.host->tunerModel().firstString.text, "D3");
}

TEST(TunerScreen, HeightOfNoTableStillGetsAUsableWindow) {
    test::ensureQtApp();
    Rendered r("phone-900");
    ASSERT_TRUE(r.host->start());
    ASSERT_NE(r.host->window(), nullptr);
    EXPECT_EQ(r.host->window()->height(), 900);
    EXPECT_EQ(r.host->layout().value("name").toString(), "Main_iPhoneXSMax");
    QCoreApplication::processEvents();
    EXPECT_GT(varied(r.host->window()->grabWindow()), 0.05);
}

} // namespace
} // namespace uke
