#include "platform/qt/ScreenSaverInhibitor.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <utility>

namespace uke {

namespace {

constexpr char kService[] = "org.freedesktop.ScreenSaver";
constexpr char kPath[] = "/org/freedesktop/ScreenSaver";
constexpr char kInterface[] = "org.freedesktop.ScreenSaver";

QDBusMessage screenSaverCall(const char* method) {
    return QDBusMessage::createMethodCall(kService, kPath, kInterface, method);
}

} // namespace

ScreenSaverInhibitor::ScreenSaverInhibitor(QDBusConnection bus, QObject* parent)
    : QObject(parent), bus_(std::move(bus)) {}

ScreenSaverInhibitor::~ScreenSaverInhibitor() {
    // Said and waited for: the app is ending, and a queued message could be lost.
    if (cookie_ && bus_.isConnected()) {
        QDBusMessage call = screenSaverCall("UnInhibit");
        call << *cookie_;
        bus_.call(call, QDBus::Block, 500);
    }
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
    if (hold && !cookie_ && !pending_ && !unavailable_)
        inhibit();
    else if (!hold && cookie_)
        release();
}

void ScreenSaverInhibitor::inhibit() {
    if (!bus_.isConnected()) {
        unavailable_ = true;
        return;
    }
    QDBusMessage call = screenSaverCall("Inhibit");
    call << QStringLiteral("Ukulele Tuner") << QStringLiteral("Tuning: the tuner is listening");
    // Asked without waiting: a slow bus must not hold up the tuner.
    pending_ = true;
    auto* watcher = new QDBusPendingCallWatcher(bus_.asyncCall(call), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this](QDBusPendingCallWatcher* w) {
        w->deleteLater();
        pending_ = false;
        const QDBusPendingReply<uint> reply = *w;
        if (reply.isError()) {
            unavailable_ = true;
            return;
        }
        cookie_ = reply.value();
        // The window may have gone, or the tuner stopped, while the call was out.
        update();
    });
}

void ScreenSaverInhibitor::release() {
    QDBusMessage call = screenSaverCall("UnInhibit");
    call << *cookie_;
    cookie_.reset();
    bus_.asyncCall(call);
}

} // namespace uke
