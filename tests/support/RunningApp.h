// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The whole app started offscreen on one device class, with a settings file of
// its own, and the means to look at and touch its window as a player would.
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QImage>
#include <QQuickItem>
#include <QQuickWindow>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>
#include <functional>
#include <memory>

#include "AppHost.h"
#include "QtAppPorts.h"
#include "platform/virtual/Fakes.h"
#include "support/QtApp.h"

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

// Runs the event loop for `ms`, for tests that let real time pass on purpose.
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
    enum class Audio { Virtual, Real };

    // An empty `resourcePath` means the sounds next to the program. The views are
    // tested on a virtual microphone, speaker and sound-file player, so that the
    // machine's own devices decide no result; the end-to-end tests ask for the real ones.
    explicit RunningApp(const char* device = "phone-844", const char* language = "en", const QString& resourcePath = {},
                        Audio audio = Audio::Virtual) {
        ensureQtApp();
        const AppHost::Options o{*DeviceClass::parse(device), language, settingsPath(), resourcePath, {}, true};
        auto ports = makeQtAppPorts(o);
        if (audio != Audio::Real) {
            auto fake = std::make_unique<FakeAudioCapture>();
            capture = fake.get();
            ports->capture = std::move(fake);
            ports->output = std::make_unique<RecordingAudioOutput>();
            auto recorder = std::make_unique<RecordingSoundPlayerFactory>();
            sounds = recorder.get();
            ports->sounds = std::move(recorder);
        }
        host = std::make_unique<AppHost>(o, std::move(ports));
        // Taps need the views laid out, which happens once the window is on screen.
        started = host->start() && QTest::qWaitForWindowExposed(host->window());
    }

    QQuickWindow* window() const { return host->window(); }
    ScreenActions& tuner() const { return *host->tuner(); }
    QString settingsPath() const { return dir.filePath("settings.ini"); }
    // What the app has written to its store, read as a fresh process would.
    QVariant stored(const char* key) const { return QSettings(settingsPath(), QSettings::IniFormat).value(key); }

    // Searched through the visual tree: items made by repeaters and views have no
    // QObject parent, and the root item is not the content item's QObject child.
    QQuickItem* item(const char* name, QQuickItem* under = nullptr) const {
        for (QQuickItem* child : (under ? under : window()->contentItem())->childItems())
            if (QQuickItem* found = child->objectName() == QLatin1String(name) ? child : item(name, child))
                return found;
        return nullptr;
    }
    QString text(const char* name) const { return item(name) ? item(name)->property("text").toString() : "(none)"; }
    // A tap in the middle of a view, delivered through the window like a real one.
    void tap(QQuickItem* target, int settleMs = 0) {
        ASSERT_NE(target, nullptr);
        const QPointF at = target->mapToScene(QPointF(target->width() / 2, target->height() / 2));
        QTest::mouseClick(window(), Qt::LeftButton, Qt::NoModifier, at.toPoint());
        settle(settleMs);
    }
    void tap(const char* name, int settleMs = 0) {
        SCOPED_TRACE(name);
        tap(item(name), settleMs);
    }
    // Opens a panel and waits until it has slid into place.
    QQuickItem* openSheet(const char* name) const {
        QQuickItem* sheet = item(name);
        EXPECT_NE(sheet, nullptr) << name;
        if (sheet) {
            const QString panel = sheet->property("panel").toString();
            host->tuner()->act("open" + panel.left(1).toUpper() + panel.mid(1));
            EXPECT_TRUE(settleUntil([&] { return sheet->property("progress").toDouble() == 1.0; })) << name;
        }
        return sheet;
    }
    void closeSheet() const { tuner().act("closePanel"); }
    // The window once it holds still: the same picture as one taken a few frames before.
    QImage grab() const {
        QImage before, now = window()->grabWindow();
        QElapsedTimer frames;
        frames.start();
        settleUntil([&] {
            if (frames.elapsed() < 50)
                return false;
            frames.restart();
            before = std::exchange(now, window()->grabWindow());
            return before == now;
        });
        return now;
    }

    QTemporaryDir dir;
    FakeAudioCapture* capture = nullptr; // the virtual microphone, owned by the host
    RecordingSoundPlayerFactory* sounds = nullptr; // the virtual sound files' player, likewise
    std::unique_ptr<AppHost> host;
    bool started = false;
};

} // namespace uke::test
