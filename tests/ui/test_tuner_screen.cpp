// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include "base/SettingsKeys.h"
#include "base/SharedState.h"
#include "rating/RatingPrompt.h"
#include "support/RunningApp.h"
#include "support/SyntheticPluck.h"
#include <QNetworkInformation>
#include <QTcpServer>
#include <QTcpSocket>
#include <thread>

namespace uke {
namespace {

using test::RunningApp;

// The window takes the class's size and layout; a height of no table gets the nearest
// one. A plucked A string lights it: the docs' pictures of phone-844 and pad-1194.
TEST(TunerScreen, RendersOnEveryKindOfClass) {
    for (const std::string device : {"phone-480", "phone-844", "phone-900", "pad-1194"}) {
        RunningApp r(device.c_str());
        ASSERT_TRUE(r.started) << device;
        const auto c = *DeviceClass::parse(device);
        EXPECT_EQ(r.window()->size(), QSize(static_cast<int>(c.width), static_cast<int>(c.height))) << device;
        EXPECT_FALSE(r.host->layout().value("name").toString().isEmpty()) << device;
        EXPECT_EQ(r.text("currentTuningName"), "Standard  G C E A") << device;
        for (int block = 0; block < 3 && !demoModeEnabled; ++block)
            ASSERT_TRUE(r.capture->deliver(test::syntheticPluck(440.0, 14039.0, 4096)));
        test::saveForDocs(r.grab(), ("tuner-lit-" + device + ".png").c_str());
    }
}

// The arrows reach their actions; the note takes the lamp's colour when the core says "in tune".
TEST(TunerScreen, ArrowsAndTheInTuneLookAreWired) {
    RunningApp r;
    ASSERT_TRUE(r.started);
    for (const char* arrow : {"showNextTuningButton", "showNextTuningButton", "showPreviousTuningButton"})
        r.tap(arrow);
    EXPECT_EQ(r.host->state().chosenTuning, 2);
    EXPECT_EQ(r.text("currentTuningName").toStdString(), r.host->tunerModel().currentTuningName.text);
    const auto noteColourWith = [&](bool green) {
        r.host->tunerModel().lightLamp(green);
        r.host->sync();
        return std::pair{r.host->inTune(), r.item("noteDisplay")->property("color")};
    };
    const auto [inTune, tunedColour] = noteColourWith(true);
    const auto [notInTune, plainColour] = noteColourWith(false);
    EXPECT_TRUE(inTune && !notInTune);
    EXPECT_NE(tunedColour, plainColour);
}

// A read-out that holds still draws no frame: the tick says when it moved (the tick
// tests), and what a frame too many costs is bench/app_cpu's to measure.

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

// Asked for on a worker, the fetch still goes out, from the main thread: the
// request itself (past every cache, within its time) is the qtplatform tests'.
TEST(QtNetworkProbe, AFetchAskedForOnAWorkerGoesOut) {
    test::ensureQtApp();
    QTcpServer server;
    ASSERT_TRUE(server.listen(QHostAddress::LocalHost));
    auto probe = makeQtNetworkProbe();
    const std::string url = "http://127.0.0.1:" + std::to_string(server.serverPort()) + "/probe";
    bool running = false;
    std::thread([&] { running = probe->startFetch(url, 20.0); }).join();
    EXPECT_TRUE(running);
    ASSERT_TRUE(settleUntil([&] { return server.hasPendingConnections(); }));
    QTcpSocket* client = server.nextPendingConnection();
    QByteArray request;
    EXPECT_TRUE(settleUntil([&] { return (request += client->readAll()).startsWith("GET /probe "); }));
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
