// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QObject>
#include <functional>

#include "platform/RunLoop.h"
#include "platform/qt/Mailbox.h"

namespace uke {

// The run loop on Qt's main event loop. After every task it calls the
// afterTask hook, which the app uses to push changed outlets to the view; the
// hook is told whether the task was a repeating one (the tick, which says
// itself what it changed) or a one-off (after which everything may have).
class QtRunLoop : public QObject, public RunLoop {
public:
    explicit QtRunLoop(QObject* parent = nullptr) : QObject(parent) {}
    void performAfterDelay(double seconds, Task task) override;
    void scheduleRepeating(double intervalSeconds, Task task) override;
    double now() const override;
    void dispatchMain(Task task) override;
    void dispatchBackground(Task task) override;

    std::function<void(bool repeating)> afterTask;

private:
    void run(const Task& task, bool repeating = false);

    Mailbox mailbox_{this}; // what other threads hand to this one
};

} // namespace uke
