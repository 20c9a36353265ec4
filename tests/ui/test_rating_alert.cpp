#include <gtest/gtest.h>

#include <QNetworkInformation>
#include <QTcpServer>
#include <QTcpSocket>
#include <thread>

#include "rating/RatingPrompt.h"
#include "settings/SettingsKeys.h"
#include "support/RunningApp.h"

namespace uke {
namespace {

using test::RunningApp;
using test::settle;
using test::settleUntil;

// The alert forced up over the tuner, `later` choosing whether it offers a reminder.
QQuickItem* forceAlert(RunningApp& s, bool later) {
    s.host->rating().forceShowPrompt(later);
    QQuickItem* alert = s.item("alert");
    EXPECT_TRUE(alert && settleUntil([&] { return alert->isVisible(); }));
    settle(400); // the fade-in
    return alert;
}

TEST(RatingAlert, DrawnOverTheTunerScreenWithThePromptsTexts) {
    RunningApp s;
    ASSERT_TRUE(s.started);
    EXPECT_FALSE(s.item("alert")->isVisible());
    forceAlert(s, true);
    const QObject* presented = s.host->alert();
    EXPECT_EQ(s.text("alertTitle"), "Rate Ukulele Tuner");
    EXPECT_EQ(s.text("alertMessage"), presented->property("message").toString());
    QStringList titles;
    for (const char* name : {"alertButton0", "alertButton1", "alertButton2"}) {
        QQuickItem* b = s.item(name);
        ASSERT_NE(b, nullptr) << name;
        titles << b->property("title").toString();
    }
    EXPECT_EQ(titles, presented->property("buttons").toStringList());
    QQuickItem* card = s.item("alertCard");
    ASSERT_NE(card, nullptr);
    EXPECT_LE(card->width(), s.window()->width());
    EXPECT_LE(card->height(), s.window()->height());
    test::saveForDocs(s.grab(), "rating-alert.png");
}

TEST(RatingAlert, ATapOnRemindLaterIsRecorded) {
    RunningApp s;
    ASSERT_TRUE(s.started);
    QQuickItem* alert = forceAlert(s, true);
    s.tap("alertButton1");
    EXPECT_TRUE(settleUntil([&] { return !alert->isVisible(); }));
    EXPECT_GT(s.stored(keys::kRatingPromptReminderRequestDate).toString().toDouble(), 1.6e9);
    EXPECT_NE(s.stored(keys::kRatingPromptDeclinedToRate).toString(), "true");
}

TEST(RatingAlert, WithoutTheLaterButtonTheSecondButtonDeclines) {
    RunningApp s;
    ASSERT_TRUE(s.started);
    forceAlert(s, false);
    EXPECT_EQ(s.item("alertButton2"), nullptr);
    s.tap("alertButton1");
    EXPECT_EQ(s.stored(keys::kRatingPromptDeclinedToRate).toString(), "true");
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
    ASSERT_TRUE(settleUntil([&] { return page.received(); }));
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
    EXPECT_TRUE(settleUntil([&] { return page.received(); }));
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
