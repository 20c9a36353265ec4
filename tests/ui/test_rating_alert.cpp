#include <gtest/gtest.h>

#include <QDir>
#include <QElapsedTimer>
#include <QNetworkInformation>
#include <QQuickItem>
#include <QQuickWindow>
#include <QSettings>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <thread>

#include "AppHost.h"
#include "rating/RatingPrompt.h"
#include "settings/SettingsKeys.h"
#include "support/QtApp.h"

// Exported by Qt GUI for QtTest: injects input as the windowing system would.
Q_GUI_EXPORT void qt_handleMouseEvent(QWindow* window, const QPointF& local, const QPointF& global,
                                      Qt::MouseButtons state, Qt::MouseButton button, QEvent::Type type,
                                      Qt::KeyboardModifiers mods, int timestamp);

namespace uke {
namespace {

// Spins the event loop until `done` holds or `ms` pass; true when it held.
template <class Pred> bool spinUntil(Pred done, int ms = 5000) {
    QElapsedTimer t;
    t.start();
    while (!done() && t.elapsed() < ms)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
    return done();
}

void spinFor(int ms) {
    spinUntil([] { return false; }, ms);
}

struct AlertScreen {
    AlertScreen() {
        test::ensureQtApp();
        AppHost::Options o;
        o.device = *DeviceClass::parse("phone-844");
        o.settingsPath = dir.filePath("settings.ini");
        o.quietLog = true;
        o.language = "en";
        host = std::make_unique<AppHost>(o);
    }
    // Walks the visual tree: items a Repeater makes are not QObject children of the window.
    QQuickItem* item(const QString& name) const { return find(host->window()->contentItem(), name); }
    static QQuickItem* find(QQuickItem* from, const QString& name) {
        if (from->objectName() == name)
            return from;
        for (QQuickItem* child : from->childItems())
            if (QQuickItem* found = find(child, name))
                return found;
        return nullptr;
    }
    QString text(const QString& name) const {
        QQuickItem* i = item(name);
        return i ? i->property("text").toString() : QString("(no %1)").arg(name);
    }
    // A tap through the platform's own input path, as QtTest makes one.
    void click(QQuickItem* target) {
        static int timestamp = 0;
        const QPointF at = target->mapToScene(QPointF(target->width() / 2, target->height() / 2));
        QQuickWindow* w = host->window();
        timestamp += 1000; // far enough apart that no two taps make a double-click
        qt_handleMouseEvent(w, at, w->mapToGlobal(at), Qt::LeftButton, Qt::LeftButton, QEvent::MouseButtonPress,
                            Qt::NoModifier, timestamp);
        qt_handleMouseEvent(w, at, w->mapToGlobal(at), Qt::NoButton, Qt::LeftButton, QEvent::MouseButtonRelease,
                            Qt::NoModifier, timestamp + 50);
        QCoreApplication::processEvents();
    }
    QTemporaryDir dir;
    std::unique_ptr<AppHost> host;
};

TEST(RatingAlert, DrawnOverTheTunerScreen) {
    AlertScreen s;
    ASSERT_TRUE(s.host->start());
    spinFor(100);
    QQuickItem* alert = s.item("alert");
    ASSERT_NE(alert, nullptr);
    EXPECT_FALSE(alert->isVisible());

    s.host->rating().forceShowPrompt(true);
    ASSERT_TRUE(spinUntil([&] { return alert->isVisible(); }));
    spinFor(400); // let the fade-in finish before the picture
    EXPECT_EQ(s.text("alertTitle"), "Rate Ukulele Tuner");
    EXPECT_TRUE(s.text("alertMessage").startsWith("If you enjoy using Ukulele Tuner, would you mind"));
    QStringList titles;
    for (int i = 0; i < 3; ++i) {
        QQuickItem* b = s.item(QString("alertButton%1").arg(i));
        ASSERT_NE(b, nullptr) << i;
        titles << b->property("title").toString();
    }
    EXPECT_EQ(titles, (QStringList{"Rate Ukulele Tuner", "Remind me later", "No, Thanks"}));
    QQuickItem* card = s.item("alertCard");
    ASSERT_NE(card, nullptr);
    EXPECT_LE(card->width(), s.host->window()->width());
    EXPECT_LE(card->height(), s.host->window()->height());

    const QImage shot = s.host->window()->grabWindow();
    ASSERT_FALSE(shot.isNull());
    EXPECT_TRUE(shot.save(QStringLiteral(UKE_BINARY_DIR "/rating-alert.png")));
    // The picture in the docs is refreshed on request, not by every test run.
    if (qEnvironmentVariableIsSet("UKE_UPDATE_DOCS")) {
        EXPECT_TRUE(shot.save(QStringLiteral(UKE_SOURCE_DIR "/docs/rating-alert.png")));
    }
}

TEST(RatingAlert, ATapOnRemindLaterIsRecorded) {
    AlertScreen s;
    ASSERT_TRUE(s.host->start());
    s.host->rating().forceShowPrompt(true);
    QQuickItem* alert = s.item("alert");
    ASSERT_TRUE(alert && spinUntil([&] { return alert->isVisible(); }));
    spinFor(300);

    QQuickItem* later = s.item("alertButton1");
    ASSERT_NE(later, nullptr);
    s.click(later);
    EXPECT_FALSE(s.host->rating().alertVisible());
    EXPECT_TRUE(spinUntil([&] { return !alert->isVisible(); }));

    QSettings written(s.dir.filePath("settings.ini"), QSettings::IniFormat);
    EXPECT_GT(written.value(keys::kRatingPromptReminderRequestDate).toString().toDouble(), 1.6e9);
    EXPECT_NE(written.value(keys::kRatingPromptDeclinedToRate).toString(), "true");
}

TEST(RatingAlert, WithoutTheLaterButtonTheSecondButtonDeclines) {
    AlertScreen s;
    ASSERT_TRUE(s.host->start());
    s.host->rating().forceShowPrompt(false);
    QQuickItem* alert = s.item("alert");
    ASSERT_TRUE(alert && spinUntil([&] { return alert->isVisible(); }));
    spinFor(300);
    EXPECT_EQ(s.item("alertButton2"), nullptr);
    QQuickItem* cancel = s.item("alertButton1");
    ASSERT_NE(cancel, nullptr);
    EXPECT_EQ(cancel->property("title").toString(), "No, Thanks");
    s.click(cancel);
    QSettings written(s.dir.filePath("settings.ini"), QSettings::IniFormat);
    EXPECT_EQ(written.value(keys::kRatingPromptDeclinedToRate).toString(), "true");
}

// A loopback server that keeps what the first client sends.
struct LoopbackPage {
    LoopbackPage() {
        server.listen(QHostAddress::LocalHost, 0);
        QObject::connect(&server, &QTcpServer::newConnection, [this] {
            QTcpSocket* socket = server.nextPendingConnection();
            QObject::connect(socket, &QTcpSocket::readyRead, [this, socket] { request += socket->readAll(); });
        });
    }
    std::string url() const { return "http://127.0.0.1:" + std::to_string(server.serverPort()) + "/probe"; }
    bool received() const { return request.contains("\r\n\r\n"); }
    QTcpServer server;
    QByteArray request;
};

TEST(QtNetworkProbe, FetchesThePageAroundAnyCache) {
    test::ensureQtApp();
    auto probe = makeQtNetworkProbe();
    LoopbackPage page;
    ASSERT_TRUE(page.server.isListening());
    EXPECT_TRUE(probe->startFetch(page.url(), 20.0));
    ASSERT_TRUE(spinUntil([&] { return page.received(); }));
    EXPECT_TRUE(page.request.startsWith("GET /probe HTTP/1.1\r\n")) << page.request.toStdString();
    EXPECT_TRUE(page.request.contains("Cache-Control: no-cache")) << page.request.toStdString();
}

TEST(QtNetworkProbe, AFetchAskedForOnAWorkerRunsOnTheMainThread) {
    test::ensureQtApp();
    auto probe = makeQtNetworkProbe();
    LoopbackPage page;
    bool running = false;
    std::thread worker([&] { running = probe->startFetch(page.url(), 20.0); });
    worker.join();
    EXPECT_TRUE(running);
    EXPECT_TRUE(spinUntil([&] { return page.received(); }));
}

TEST(QtNetworkProbe, BadAddressesAndUnknownReachability) {
    test::ensureQtApp();
    auto probe = makeQtNetworkProbe();
    EXPECT_FALSE(probe->startFetch("http://[::1", 20.0));
    const auto flags = probe->reachabilityFlags();
    QNetworkInformation* info = QNetworkInformation::instance();
    if (!info || info->reachability() == QNetworkInformation::Reachability::Unknown) {
        EXPECT_FALSE(flags.has_value()) << "no backend or no answer reads as unreadable flags";
    } else {
        EXPECT_TRUE(flags.has_value());
    }
}

} // namespace
} // namespace uke
