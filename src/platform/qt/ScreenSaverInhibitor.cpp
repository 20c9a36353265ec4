// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt/ScreenSaverInhibitor.h"

#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QVariantMap>
#include <utility>

namespace uke {

namespace {

constexpr char kReason[] = "Tuning: the tuner is listening";
constexpr char kScreenSaver[] = "org.freedesktop.ScreenSaver";
constexpr char kPortal[] = "org.freedesktop.portal.Desktop";
// The portal's flag for "the session must not go idle" (the screen saver).
constexpr uint kInhibitIdle = 8;

// The ways to ask, in order: the Inhibit call, and from its answer the call that releases.
QDBusMessage inhibitCall(int way) {
    if (way == 0) {
        QDBusMessage call = QDBusMessage::createMethodCall(kScreenSaver, "/org/freedesktop/ScreenSaver",
                                                           kScreenSaver, "Inhibit");
        return call << QStringLiteral("Ukulele Tuner") << QString::fromLatin1(kReason);
    }
    QDBusMessage call = QDBusMessage::createMethodCall(kPortal, "/org/freedesktop/portal/desktop",
                                                       "org.freedesktop.portal.Inhibit", "Inhibit");
    return call << QString() << kInhibitIdle << QVariantMap{{"reason", QString::fromLatin1(kReason)}};
}
constexpr int kWays = 2;

QDBusMessage releaseCall(int way, const QDBusMessage& answer) {
    const QVariant value = answer.arguments().value(0);
    if (way == 0) {
        QDBusMessage call = QDBusMessage::createMethodCall(kScreenSaver, "/org/freedesktop/ScreenSaver",
                                                           kScreenSaver, "UnInhibit");
        return call << value.toUInt();
    }
    // The portal's hold lasts as long as the request object it answered with.
    return QDBusMessage::createMethodCall(kPortal, qvariant_cast<QDBusObjectPath>(value).path(),
                                          "org.freedesktop.portal.Request", "Close");
}

} // namespace

ScreenSaverInhibitor::ScreenSaverInhibitor(QDBusConnection bus, QObject* parent)
    : QObject(parent), bus_(std::move(bus)) {}

ScreenSaverInhibitor::~ScreenSaverInhibitor() {
    // An answer still on its way is given straight back when it comes (while the app
    // lives on; when it ends, its bus connection closes and the desktop lets go).
    if (pending_) {
        pending_->disconnect(this);
        pending_->setParent(nullptr);
        connect(pending_, &QDBusPendingCallWatcher::finished, pending_,
                [bus = bus_, way = pendingWay_](QDBusPendingCallWatcher* w) {
                    w->deleteLater();
                    if (!w->isError())
                        bus.asyncCall(releaseCall(way, w->reply()));
                });
    }
    // Said and waited for: the app is ending, and a queued message could be lost.
    if (holding() && bus_.isConnected())
        bus_.call(release_, QDBus::Block, 500);
}

void ScreenSaverInhibitor::setIdleTimerDisabled(bool disabled) {
    wanted_ = disabled;
    unavailable_ = false;
    update();
}

void ScreenSaverInhibitor::watch(QWindow* window) {
    if (window_)
        disconnect(window_, nullptr, this, nullptr);
    window_ = window;
    if (window) {
        connect(window, &QWindow::visibilityChanged, this, [this] {
            unavailable_ = false;
            update();
        });
    }
    update();
}

void ScreenSaverInhibitor::update() {
    const QWindow::Visibility v = window_ ? window_->visibility() : QWindow::Hidden;
    const bool hold = wanted_ && v != QWindow::Hidden && v != QWindow::Minimized;
    if (hold && !holding() && !pending_ && !unavailable_) {
        inhibit(firstWay_, kWays);
    } else if (!hold && holding()) {
        bus_.asyncCall(std::exchange(release_, QDBusMessage()));
    }
}

void ScreenSaverInhibitor::inhibit(int way, int left) {
    if (left == 0 || !bus_.isConnected()) {
        unavailable_ = true;
        return;
    }
    // Asked without waiting: a slow bus must not hold up the tuner.
    pending_ = new QDBusPendingCallWatcher(bus_.asyncCall(inhibitCall(way)), this);
    pendingWay_ = way;
    connect(pending_, &QDBusPendingCallWatcher::finished, this, [this, way, left](QDBusPendingCallWatcher* w) {
        w->deleteLater();
        pending_ = nullptr;
        if (w->isError())
            return inhibit((way + 1) % kWays, left - 1);
        firstWay_ = way;
        release_ = releaseCall(way, w->reply());
        // The window may have gone, or the tuner stopped, while the call was out.
        update();
    });
}

} // namespace uke
