// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QObject>
#include <QPointer>
#include <QWindow>

#include "platform/IdleTimer.h"

namespace uke {

// Keeps the screen lit while the tuner listens and its window is on screen. It asks
// the desktop over the session bus: org.freedesktop.ScreenSaver (KDE, Xfce, LXQt and
// others), else the desktop portal's Inhibit (GNOME, sandboxes). A hidden or minimised
// window, or the app's end, lets the screen saver run again. Where there is no session
// bus or neither service, nothing happens and nothing fails.
class ScreenSaverInhibitor : public QObject, public IdleTimer {
public:
    explicit ScreenSaverInhibitor(QDBusConnection bus = QDBusConnection::sessionBus(), QObject* parent = nullptr);
    ~ScreenSaverInhibitor() override;

    void setIdleTimerDisabled(bool disabled) override;
    // The window whose visibility decides whether the screen is held.
    void watch(QWindow* window);
    bool holding() const { return release_.type() == QDBusMessage::MethodCallMessage; }

private:
    void update();
    // Asks `way`, and on a refusal the next, until `left` ways have been asked.
    void inhibit(int way, int left);

    QDBusConnection bus_;
    QPointer<QWindow> window_;
    bool wanted_ = false;
    QPointer<QDBusPendingCallWatcher> pending_; // an Inhibit call waiting for its answer
    int pendingWay_ = 0;
    int firstWay_ = 0;         // the way that worked last is asked first
    bool unavailable_ = false; // no way worked: no retry until something changes
    QDBusMessage release_;     // the call that lets go of the hold, while one is held
};

} // namespace uke
