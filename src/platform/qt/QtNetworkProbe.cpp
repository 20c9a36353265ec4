// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#include <QNetworkAccessManager>
#include <QNetworkInformation>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QThread>
#include <QUrl>
#include <atomic>

#include "platform/qt/Mailbox.h"
#include "platform/qt/QtPorts.h"

namespace uke {

namespace {

// Reachability from QNetworkInformation, fetches through a QNetworkAccessManager.
// Made on the main thread; both calls may come from any thread: the state is kept
// in atomics that the backend's signals update, and a fetch asked for elsewhere is
// queued to the main thread, where the manager lives.
class QtNetworkProbe : public QObject, public NetworkProbe {
public:
    QtNetworkProbe() {
        // Without a backend (no NetworkManager, a bare container) the state stays
        // Unknown, which the prompt reads as flags it could not get.
        if (!QNetworkInformation::loadDefaultBackend())
            return;
        QNetworkInformation* info = QNetworkInformation::instance();
        if (!info || !info->supports(QNetworkInformation::Feature::Reachability))
            return;
        reachability_ = info->reachability();
        captivePortal_ = info->isBehindCaptivePortal();
        connect(info, &QNetworkInformation::reachabilityChanged, this,
                [this](QNetworkInformation::Reachability r) { reachability_ = r; });
        connect(info, &QNetworkInformation::isBehindCaptivePortalChanged, this,
                [this](bool behind) { captivePortal_ = behind; });
    }

    std::optional<Flags> reachabilityFlags() override {
        Flags flags;
        switch (reachability_.load()) {
        case QNetworkInformation::Reachability::Unknown: return std::nullopt;
        case QNetworkInformation::Reachability::Online:
            flags.reachable = true;
            // A portal lets nothing through until someone signs in.
            flags.connectionRequired = captivePortal_.load();
            break;
        // A local or site network alone does not reach the outside world.
        case QNetworkInformation::Reachability::Disconnected:
        case QNetworkInformation::Reachability::Local:
        case QNetworkInformation::Reachability::Site: break;
        }
        return flags;
    }

    bool startFetch(const std::string& url, double timeoutSeconds) override {
        const QUrl address(QString::fromStdString(url));
        if (!address.isValid())
            return false;
        if (QThread::currentThread() != thread()) {
            mailbox_.post([this, address, timeoutSeconds] { fetch(address, timeoutSeconds); });
            return true;
        }
        return fetch(address, timeoutSeconds);
    }

private:
    bool fetch(const QUrl& address, double timeoutSeconds) {
        QNetworkRequest request(address);
        request.setAttribute(QNetworkRequest::CacheLoadControlAttribute, QNetworkRequest::AlwaysNetwork);
        request.setAttribute(QNetworkRequest::CacheSaveControlAttribute, false);
        request.setTransferTimeout(static_cast<int>(timeoutSeconds * 1000.0));
        QNetworkReply* reply = manager_.get(request);
        // Nobody reads the answer; the reply only has to go when it is done.
        connect(reply, &QNetworkReply::finished, reply, &QObject::deleteLater);
        return reply->isRunning();
    }

    std::atomic<QNetworkInformation::Reachability> reachability_{QNetworkInformation::Reachability::Unknown};
    std::atomic<bool> captivePortal_{false};
    QNetworkAccessManager manager_;
    Mailbox mailbox_{this}; // fetches asked for on other threads
};

} // namespace

std::unique_ptr<NetworkProbe> makeQtNetworkProbe() { return std::make_unique<QtNetworkProbe>(); }

} // namespace uke
