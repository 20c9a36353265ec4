#include <gtest/gtest.h>

#include <QNetworkInformation>
#include <QTcpServer>
#include <QTcpSocket>
#include <thread>

#include "base/SettingsKeys.h"
#include "rating/RatingPrompt.h"
#include "support/RunningApp.h"

namespace uke {
namespace {

using test::RunningApp;
using test::settleUntil;

// Drawn over the tuner with the prompt's texts; the second button is "remind me
// later" when the alert offers it and "no, thanks" when not.
TEST(RatingAlert, ShowsThePromptAndReportsTheSecondButton) {
    for (const bool later : {true, false}) {
        RunningApp s;
        ASSERT_TRUE(s.started);
        EXPECT_FALSE(s.item("alert")->isVisible());
        s.host->rating().forceShowPrompt(later);
        QQuickItem* card = s.item("alertCard");
        ASSERT_TRUE(settleUntil([&] { return card->opacity() == 1.0; })) << "the alert never faded in";
        const QmlAlertPresenter* presented = s.host->alert();
        EXPECT_EQ(s.text("alertTitle"), "Rate Ukulele Tuner");
        EXPECT_EQ(s.text("alertMessage"), presented->message());
        for (int i = 0; i < 3; ++i) {
            QQuickItem* b = s.item(QString("alertButton%1").arg(i).toLatin1().constData());
            EXPECT_EQ(b ? b->property("title").toString() : QString(), presented->buttons().value(i)) << i;
        }
        EXPECT_LE(card->width(), s.window()->width());
        if (later)
            test::saveForDocs(s.grab(), "rating-alert.png");
        s.tap("alertButton1");
        EXPECT_TRUE(settleUntil([&] { return !s.item("alert")->isVisible(); }));
        EXPECT_EQ(s.stored(keys::kRatingPromptReminderRequestDate).isValid(), later);
        EXPECT_EQ(s.stored(keys::kRatingPromptDeclinedToRate).toString() == "true", !later);
    }
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

// Asked for on the main thread or on a worker, the fetch runs on the main thread
// and goes around any cache.
TEST(QtNetworkProbe, FetchesThePageAroundAnyCacheFromAnyThread) {
    test::ensureQtApp();
    for (const bool onWorker : {false, true}) {
        auto probe = makeQtNetworkProbe();
        LoopbackPage page;
        bool running = false;
        const auto fetch = [&] { running = probe->startFetch(page.url(), 20.0); };
        onWorker ? std::thread(fetch).join() : fetch();
        EXPECT_TRUE(running) << onWorker;
        ASSERT_TRUE(settleUntil([&] { return page.received(); })) << onWorker;
        EXPECT_TRUE(page.request.startsWith("GET /probe HTTP/1.1\r\n")) << page.request.toStdString();
        EXPECT_TRUE(page.request.contains("Cache-Control: no-cache")) << page.request.toStdString();
    }
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
