#pragma once
#include <QDBusConnection>
#include <QObject>
#include <QPointer>
#include <QWindow>
#include <optional>

#include "platform/IdleTimer.h"

namespace uke {

// Keeps the screen lit while the tuner listens and its window is on screen, through
// the desktop's org.freedesktop.ScreenSaver Inhibit call on the session bus. A
// hidden or minimised window, or the app's end, lets the screen saver run again.
// Where there is no session bus or no such service, nothing happens and nothing fails.
class ScreenSaverInhibitor : public QObject, public IdleTimer {
public:
    explicit ScreenSaverInhibitor(QDBusConnection bus = QDBusConnection::sessionBus(), QObject* parent = nullptr);
    ~ScreenSaverInhibitor() override;

    void setIdleTimerDisabled(bool disabled) override;
    // The window whose visibility decides whether the screen is held.
    void watch(QWindow* window);
    bool holding() const { return cookie_.has_value(); }

private:
    void update();
    void inhibit();
    void release();

    QDBusConnection bus_;
    QPointer<QWindow> window_;
    bool wanted_ = false;
    bool pending_ = false;     // an Inhibit call waits for its answer
    bool unavailable_ = false; // the last Inhibit failed: no retry until something changes
    std::optional<uint> cookie_;
};

} // namespace uke
