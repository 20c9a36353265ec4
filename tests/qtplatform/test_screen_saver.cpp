// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
// The screen is kept lit while the tuner listens and its window shows, through the
// desktop's services, here fakes on a private session bus.
#include <gtest/gtest.h>

#include <QDBusConnection>
#include <QDBusObjectPath>
#include <QProcess>
#include <QTest>
#include <QWindow>

#include "platform/qt/ScreenSaverInhibitor.h"
#include "support/QtApp.h"

namespace uke {
namespace {

// What the desktop was asked, in order, from either service.
QStringList calls;

// KDE's, Xfce's and others' service: hands out cookies.
class FakeScreenSaver : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.ScreenSaver")
public slots:
    uint Inhibit(const QString& application, const QString& reason) {
        calls << QString("Inhibit %1 (%2): %3").arg(++last).arg(application, reason);
        return last;
    }
    void UnInhibit(uint cookie) { calls << QString("UnInhibit %1").arg(cookie); }

private:
    uint last = 40;
};

// The portal (GNOME's way): each hold is a request object, closed to let go.
class FakeRequest : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Request")
public slots:
    void Close() { calls << "Close " + objectName(); }
};
class FakePortal : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Inhibit")
public:
    QDBusConnection* bus = nullptr;
public slots:
    QDBusObjectPath Inhibit(const QString&, uint flags, const QVariantMap& options) {
        auto* request = new FakeRequest;
        request->setParent(this);
        request->setObjectName(QString::number(++last));
        const QString path = "/org/freedesktop/portal/desktop/request/" + request->objectName();
        bus->registerObject(path, request, QDBusConnection::ExportAllSlots);
        calls << QString("Portal %1 flags %2: %3").arg(last).arg(flags).arg(options.value("reason").toString());
        return QDBusObjectPath(path);
    }

private:
    int last = 0;
};

struct Desktop {
    const char* name;
    bool screenSaver, portal;
    QStringList expected;
};

class ScreenSaverInhibitorOn : public ::testing::TestWithParam<Desktop> {
protected:
    void SetUp() override {
        calls.clear();
        // A session bus of the test's own, so that the machine's desktop is never touched.
        daemon.start("dbus-daemon", {"--config-file=/usr/share/dbus-1/session.conf", "--nofork", "--print-address=1"});
        if (!daemon.waitForReadyRead(5000))
            GTEST_SKIP() << "dbus-daemon could not be started";
        address = QString::fromUtf8(daemon.readLine()).trimmed();
        desktop = bus("desktop");
        portal.bus = &desktop;
        if (GetParam().screenSaver) {
            desktop.registerObject("/org/freedesktop/ScreenSaver", &screenSaver, QDBusConnection::ExportAllSlots);
            ASSERT_TRUE(desktop.registerService("org.freedesktop.ScreenSaver"));
        }
        if (GetParam().portal) {
            desktop.registerObject("/org/freedesktop/portal/desktop", &portal, QDBusConnection::ExportAllSlots);
            ASSERT_TRUE(desktop.registerService("org.freedesktop.portal.Desktop"));
        }
        window.resize(100, 100);
    }
    void TearDown() override {
        QDBusConnection::disconnectFromBus("inhibitor");
        QDBusConnection::disconnectFromBus("desktop");
        daemon.kill();
        daemon.waitForFinished(5000);
    }
    QDBusConnection bus(const QString& name) const { return QDBusConnection::connectToBus(address, name); }
    // Lets the calls and their answers cross the bus.
    static void settle() { QTest::qWait(200); }

    const bool qt = (test::ensureQtApp(), true); // before the window
    QProcess daemon;
    QString address;
    QDBusConnection desktop{""};
    FakeScreenSaver screenSaver;
    FakePortal portal;
    QWindow window;
};

TEST_P(ScreenSaverInhibitorOn, HeldWhileListeningAndShownReleasedWhenHiddenOrGone) {
    const bool held = !GetParam().expected.isEmpty();
    auto keeper = std::make_unique<ScreenSaverInhibitor>(bus("inhibitor"));
    keeper->watch(&window);
    keeper->setIdleTimerDisabled(true);
    settle();
    EXPECT_TRUE(calls.isEmpty()) << "nothing is held before the window shows";
    window.show();
    settle();
    EXPECT_EQ(keeper->holding(), held);
    window.showMinimized();
    settle();
    window.hide();
    settle();
    EXPECT_FALSE(keeper->holding());
    window.show();
    settle();
    keeper->setIdleTimerDisabled(false);
    settle();
    // Hidden before the answer came: the hold is given straight back.
    keeper->setIdleTimerDisabled(true);
    window.hide();
    settle();
    EXPECT_FALSE(keeper->holding());
    window.show();
    keeper.reset(); // the app quits before the answer
    settle();
    EXPECT_EQ(calls.join('\n').toStdString(), GetParam().expected.join('\n').toStdString());
    // And on a session without a bus at all.
    ScreenSaverInhibitor unconnected{QDBusConnection("not-connected")};
    unconnected.watch(&window);
    unconnected.setIdleTimerDisabled(true);
    EXPECT_FALSE(unconnected.holding());
}

// The four holds the test takes, each given back, numbered from `first`.
QStringList fourHolds(const QString& hold, const QString& release, int first) {
    QStringList calls;
    for (int n = first; n < first + 4; ++n)
        calls << hold.arg(n) + ": Tuning: the tuner is listening" << release.arg(n);
    return calls;
}

INSTANTIATE_TEST_SUITE_P(Desktops, ScreenSaverInhibitorOn,
                         ::testing::Values(Desktop{"ScreenSaverService", true, true,
                                                   fourHolds("Inhibit %1 (Ukulele Tuner)", "UnInhibit %1", 41)},
                                           Desktop{"PortalOnly", false, true,
                                                   fourHolds("Portal %1 flags 8", "Close %1", 1)},
                                           Desktop{"Neither", false, false, {}}),
                         [](const auto& info) { return std::string(info.param.name); });

} // namespace
} // namespace uke

#include "test_screen_saver.moc"
