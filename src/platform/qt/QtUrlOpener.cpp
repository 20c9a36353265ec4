// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#include <QCoreApplication>
#include <QDesktopServices>
#include <QProcess>
#include <QUrl>

#include "platform/qt/QtPorts.h"

namespace uke {

namespace {

// The store app's links have an https twin that any browser shows.
QUrl inTheBrowser(QUrl url) {
    url.setScheme(QStringLiteral("https"));
    return url;
}

class QtUrlOpener : public UrlOpener {
public:
    void openUrl(const std::string& url) override {
        const QUrl target(QString::fromStdString(url));
        if (target.scheme() != QLatin1String("itms-apps")) {
            QDesktopServices::openUrl(target);
            return;
        }
        // Only xdg-open's exit status says whether anything handles the store's
        // scheme: QDesktopServices reports that xdg-open started, handler or not.
        // Without one, the same page opens in the browser instead of nothing at all.
        auto* opener = new QProcess(QCoreApplication::instance());
        QObject::connect(opener, &QProcess::finished, opener, [opener, target](int status, QProcess::ExitStatus how) {
            opener->deleteLater();
            if (how != QProcess::NormalExit || status != 0)
                QDesktopServices::openUrl(inTheBrowser(target));
        });
        QObject::connect(opener, &QProcess::errorOccurred, opener, [opener, target](QProcess::ProcessError error) {
            if (error != QProcess::FailedToStart)
                return;
            opener->deleteLater();
            QDesktopServices::openUrl(inTheBrowser(target));
        });
        opener->start(QStringLiteral("xdg-open"), {target.toString()});
    }
};

} // namespace

std::unique_ptr<UrlOpener> makeQtUrlOpener() { return std::make_unique<QtUrlOpener>(); }

} // namespace uke
