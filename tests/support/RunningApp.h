#pragma once
// The whole app started offscreen on one device class, with a settings file of
// its own, and the means to look at and touch its window as a player would.
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QImage>
#include <QSettings>
#include <QTemporaryDir>
#include <functional>
#include <memory>

#include "AppHost.h"
#include "platform/virtual/Fakes.h"
#include "support/QtApp.h"
#include "support/QuickItems.h"

namespace uke::test {

// Runs the event loop until `done` holds or `ms` pass, at least once; true when it held.
template <class Pred> bool settleUntil(Pred done, int ms = 5000) {
    QElapsedTimer clock;
    clock.start();
    do
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    while (!done() && clock.elapsed() < ms);
    return done();
}

// Animations and queued outlet updates need the loop to run for a while.
inline void settle(int ms = 0) {
    settleUntil([] { return false; }, ms);
}

// Share of pixels that differ from the top-left one: a blank window scores near 0.
inline double varied(const QImage& img) {
    const QRgb bg = img.pixel(0, 0);
    long differ = 0;
    for (int y = 0; y < img.height(); y += 2)
        for (int x = 0; x < img.width(); x += 2)
            differ += img.pixel(x, y) != bg;
    return static_cast<double>(differ) / ((img.width() / 2) * (img.height() / 2));
}

// The docs' pictures are refreshed on request (UKE_DOCS_DIR names the folder), not
// by every run; every run still checks that the picture shows something.
inline void saveForDocs(const QImage& img, const char* fileName) {
    ASSERT_FALSE(img.isNull()) << fileName;
    EXPECT_GT(varied(img), 0.05) << fileName << " looks blank";
    if (const QString docs = qEnvironmentVariable("UKE_DOCS_DIR"); !docs.isEmpty()) {
        EXPECT_TRUE(img.save(QDir(docs).filePath(fileName))) << fileName;
    }
}

struct RunningApp {
    using Seed = std::function<void(QSettings&)>;
    enum class Audio { Virtual, NoMicrophone, Real };

    // `seed` writes what an earlier run left in the store; an empty `resourcePath`
    // means the sounds next to the program. The views are tested on a virtual
    // microphone and speaker, so that the machine's own devices decide no result;
    // the end-to-end tests ask for the real ones.
    explicit RunningApp(const char* device = "phone-844", const char* language = "en", const Seed& seed = {},
                        const QString& resourcePath = {}, Audio audio = Audio::Virtual) {
        ensureQtApp();
        if (seed) {
            QSettings ini(settingsPath(), QSettings::IniFormat);
            seed(ini);
        }
        AppHost::Options o;
        o.device = *DeviceClass::parse(device);
        o.settingsPath = settingsPath();
        o.resourcePath = resourcePath;
        o.quietLog = true;
        o.language = language;
        auto ports = AppHost::qtPorts(o);
        if (audio != Audio::Real) {
            auto fakeCapture = std::make_unique<FakeAudioCapture>();
            capture = fakeCapture.get();
            capture->failToOpen = audio == Audio::NoMicrophone;
            ports->capture = std::move(fakeCapture);
            auto fakeOutput = std::make_unique<RecordingAudioOutput>();
            output = fakeOutput.get();
            ports->output = std::move(fakeOutput);
        }
        host = std::make_unique<AppHost>(o, std::move(ports));
        // Taps need the views laid out, which happens once the window is on screen.
        started = host->start() && QTest::qWaitForWindowExposed(host->window());
        settle(50);
    }

    QQuickWindow* window() const { return host->window(); }
    QString settingsPath() const { return dir.filePath("settings.ini"); }
    // What the app has written to its store, read as a fresh process would.
    QVariant stored(const char* key) const { return QSettings(settingsPath(), QSettings::IniFormat).value(key); }

    QQuickItem* item(const char* name, QQuickItem* under = nullptr) const {
        return under ? findItem(under, QLatin1String(name)) : findItem(window(), name);
    }
    QString text(const char* name) const {
        QQuickItem* i = item(name);
        return i ? i->property("text").toString() : QStringLiteral("(no %1)").arg(name);
    }
    void tap(QQuickItem* target, int settleMs = 50) {
        ASSERT_NE(target, nullptr);
        tapItem(window(), target);
        settle(settleMs);
    }
    void tap(const char* name, int settleMs = 50) {
        SCOPED_TRACE(name);
        tap(item(name), settleMs);
    }
    QImage grab() {
        settle(100);
        return window()->grabWindow();
    }

    QTemporaryDir dir;
    // The virtual devices, when the app has them.
    FakeAudioCapture* capture = nullptr;
    RecordingAudioOutput* output = nullptr;
    std::unique_ptr<AppHost> host;
    bool started = false;
};

} // namespace uke::test
