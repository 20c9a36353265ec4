// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt/QtRunLoop.h"

#include <QDateTime>
#include <QTimer>
#include <cmath>

namespace uke {

void QtRunLoop::run(const Task& task, bool repeating) {
    task();
    if (afterTask)
        afterTask(repeating);
}

void QtRunLoop::performAfterDelay(double seconds, Task task) {
    const int ms = seconds > 0.0 ? static_cast<int>(std::lround(seconds * 1000.0)) : 0;
    QTimer::singleShot(ms, Qt::PreciseTimer, this, [this, task = std::move(task)] { run(task); });
}

void QtRunLoop::scheduleRepeating(double intervalSeconds, Task task) {
    auto* timer = new QTimer(this);
    timer->setTimerType(Qt::PreciseTimer);
    timer->setInterval(std::max(1, static_cast<int>(std::lround(intervalSeconds * 1000.0))));
    connect(timer, &QTimer::timeout, this, [this, task = std::move(task)] { run(task, true); });
    timer->start();
}

double QtRunLoop::now() const { return static_cast<double>(QDateTime::currentMSecsSinceEpoch()) / 1000.0; }

void QtRunLoop::dispatchMain(Task task) {
    mailbox_.post([this, task = std::move(task)] { run(task); });
}

void QtRunLoop::dispatchBackground(Task task) { runInPool(std::move(task)); }

} // namespace uke
