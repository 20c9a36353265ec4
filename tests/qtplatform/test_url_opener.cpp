// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
// Links leave the app through the desktop: the store's own scheme goes to xdg-open,
// and when nothing handles it the same page opens in the browser. The network
// probe's fetch goes out on its own.
#include <gtest/gtest.h>

#include <QDesktopServices>
#include <QFile>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QTest>
#include <QUrl>

#include "platform/qt/QtPorts.h"
#include "support/QtApp.h"

namespace uke {
namespace {

// The browser: whatever https page the app opens lands here.
class Browser : public QObject {
    Q_OBJECT
public:
    Browser() { QDesktopServices::setUrlHandler("https", this, "open"); }
    ~Browser() override { QDesktopServices::unsetUrlHandler("https"); }
    QStringList opened;
public slots:
    void open(const QUrl& url) { opened << url.toString(); }
};

constexpr char kStoreLink[] = "itms-apps://store.example/app/id1438296114";
constexpr char kStorePage[] = "https://store.example/app/id1438296114";

struct Desktop {
    const char* name;
    const char* xdgOpen; // the script's body; none: no xdg-open on the PATH
    bool inTheBrowser;   // whether the page ends up in the browser
};

class UrlOpenerOnDesktops : public ::testing::TestWithParam<Desktop> {};

TEST_P(UrlOpenerOnDesktops, StoreLinksReachAPageWhateverHandlesThem) {
    const Desktop& d = GetParam();
    test::ensureQtApp();
    QTemporaryDir bin;
    const QString log = bin.filePath("xdg-open.log");
    if (d.xdgOpen) {
        QFile script(bin.filePath("xdg-open"));
        ASSERT_TRUE(script.open(QIODevice::WriteOnly));
        script.write(QString("#!/bin/sh\necho \"$1\" >> '%1'\n%2\n").arg(log, d.xdgOpen).toUtf8());
        script.setPermissions(script.permissions() | QFile::ExeOwner);
    }
    const QByteArray path = qgetenv("PATH");
    // Without a script, only the empty folder is searched: no xdg-open at all.
    qputenv("PATH", d.xdgOpen ? bin.path().toUtf8() + ":" + path : bin.path().toUtf8());
    Browser browser;
    makeQtUrlOpener()->openUrl(kStoreLink);
    const auto handed = [&] {
        QFile f(log);
        return f.open(QIODevice::ReadOnly) ? QString::fromUtf8(f.readAll()).split('\n', Qt::SkipEmptyParts)
                                           : QStringList{};
    };
    const QStringList inBrowser = d.inTheBrowser ? QStringList{kStorePage} : QStringList{};
    QTRY_COMPARE_WITH_TIMEOUT(handed(), d.xdgOpen ? QStringList{kStoreLink} : QStringList{}, 5000);
    QTRY_COMPARE_WITH_TIMEOUT(browser.opened, inBrowser, 5000);
    QTest::qWait(100);
    EXPECT_EQ(browser.opened, inBrowser) << "opened once only";
    qputenv("PATH", path);
}

INSTANTIATE_TEST_SUITE_P(
    Links, UrlOpenerOnDesktops,
    ::testing::Values(
        // xdg-open exits 4 when no application is set for the scheme.
        Desktop{"NoStoreApp", "exit 4", true}, Desktop{"StoreApp", "exit 0", false},
        Desktop{"NoXdgOpen", nullptr, true}),
    [](const auto& info) { return std::string(info.param.name); });

// The probe's fetch asks past every cache, and gives up after the time it is given
// on a loopback server that never answers.
TEST(NetworkProbe, FetchesPastEveryCacheAndGivesUpInTime) {
    test::ensureQtApp();
    QTcpServer server;
    ASSERT_TRUE(server.listen(QHostAddress::LocalHost));
    const auto probe = makeQtNetworkProbe();
    ASSERT_TRUE(probe->startFetch("http://127.0.0.1:" + std::to_string(server.serverPort()) + "/probe", 0.5));
    ASSERT_TRUE(QTest::qWaitFor([&] { return server.hasPendingConnections(); }, 5000));
    QTcpSocket* client = server.nextPendingConnection();
    QByteArray request;
    EXPECT_TRUE(QTest::qWaitFor([&] { return (request += client->readAll()).contains("\r\n\r\n"); }, 5000));
    EXPECT_TRUE(request.startsWith("GET /probe HTTP/1.1\r\n")) << request.toStdString();
    EXPECT_TRUE(request.contains("\r\nCache-Control: no-cache\r\n")) << request.toStdString();
    EXPECT_TRUE(QTest::qWaitFor([&] { return client->state() == QAbstractSocket::UnconnectedState; }, 5000))
        << "the fetch never gave up";
}

} // namespace
} // namespace uke

#include "test_url_opener.moc"
