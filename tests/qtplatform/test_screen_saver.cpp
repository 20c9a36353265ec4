// The screen is kept lit while the tuner listens and its window shows, through the
// desktop's screen-saver service, here a fake one on a private session bus.
#include <gtest/gtest.h>

#include <QDBusConnection>
#include <QProcess>
#include <QTest>
#include <QWindow>

#include "platform/qt/ScreenSaverInhibitor.h"
#include "support/QtApp.h"

namespace uke {
namespace {

// The desktop's side: hands out cookies and remembers which are held.
class FakeScreenSaver : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.ScreenSaver")
public:
    QStringList calls;
    QList<uint> held;
    uint last = 40;
public slots:
    uint Inhibit(const QString& application, const QString& reason) {
        calls << "Inhibit " + application + ": " + reason;
        held << ++last;
        return last;
    }
    void UnInhibit(uint cookie) {
        calls << QString("UnInhibit %1").arg(cookie);
        held.removeAll(cookie);
    }
};

// On a session bus of the test's own, so that the machine's desktop (if any) is never touched.
class ScreenSaverInhibitorTest : public ::testing::Test {
protected:
    void SetUp() override {
        daemon.start("dbus-daemon", {"--config-file=/usr/share/dbus-1/session.conf", "--nofork", "--print-address=1"});
        if (!daemon.waitForReadyRead(5000))
            GTEST_SKIP() << "dbus-daemon could not be started";
        address = QString::fromUtf8(daemon.readLine()).trimmed();
        desktop = bus("desktop");
        ASSERT_TRUE(desktop.registerObject("/org/freedesktop/ScreenSaver", &fake, QDBusConnection::ExportAllSlots));
        ASSERT_TRUE(desktop.registerService("org.freedesktop.ScreenSaver"));
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
    FakeScreenSaver fake;
    QWindow window;
};

TEST_F(ScreenSaverInhibitorTest, HeldWhileListeningAndShownReleasedWhenHiddenOrGone) {
    auto keeper = std::make_unique<ScreenSaverInhibitor>(bus("inhibitor"));
    keeper->watch(&window);
    keeper->setIdleTimerDisabled(true);
    settle();
    EXPECT_TRUE(fake.calls.isEmpty()) << "nothing is held before the window shows";

    window.show();
    settle();
    EXPECT_EQ(fake.calls, QStringList{"Inhibit Ukulele Tuner: Tuning: the tuner is listening"});
    EXPECT_EQ(fake.held, QList<uint>{41});
    EXPECT_TRUE(keeper->holding());

    window.showMinimized();
    settle();
    window.hide();
    settle();
    EXPECT_TRUE(fake.held.isEmpty());
    EXPECT_EQ(fake.calls.last(), "UnInhibit 41");

    window.show();
    settle();
    EXPECT_EQ(fake.held, QList<uint>{42});
    keeper->setIdleTimerDisabled(false);
    settle();
    EXPECT_TRUE(fake.held.isEmpty());

    keeper->setIdleTimerDisabled(true);
    settle();
    EXPECT_EQ(fake.held, QList<uint>{43});
    keeper.reset(); // the app quits
    settle();
    EXPECT_TRUE(fake.held.isEmpty());
    EXPECT_EQ(fake.calls.size(), 6) << fake.calls.join('\n').toStdString();
}

// Hidden before the answer came: the cookie is given straight back.
TEST_F(ScreenSaverInhibitorTest, WindowHiddenWhileTheCallIsOutIsReleasedOnTheAnswer) {
    ScreenSaverInhibitor keeper(bus("inhibitor"));
    window.show();
    keeper.watch(&window);
    keeper.setIdleTimerDisabled(true);
    window.hide();
    settle();
    EXPECT_TRUE(fake.held.isEmpty());
    EXPECT_FALSE(keeper.holding());
}

// No screen-saver service, or no bus at all: the tuner goes on, and nothing waits.
TEST_F(ScreenSaverInhibitorTest, NoServiceOrNoBusIsNoFailure) {
    desktop.unregisterService("org.freedesktop.ScreenSaver");
    for (QDBusConnection connection : {bus("inhibitor"), QDBusConnection("not-connected")}) {
        ScreenSaverInhibitor keeper(connection);
        keeper.watch(&window);
        window.show();
        keeper.setIdleTimerDisabled(true);
        settle();
        EXPECT_FALSE(keeper.holding());
        window.hide();
        window.show();
        settle();
        EXPECT_FALSE(keeper.holding());
        window.hide();
    }
    EXPECT_TRUE(fake.calls.isEmpty());
}

} // namespace
} // namespace uke

#include "test_screen_saver.moc"
