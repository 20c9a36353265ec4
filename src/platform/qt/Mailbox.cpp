// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt/Mailbox.h"

#include <QCoreApplication>
#include <QEvent>
#include <QThread>
#include <QThreadPool>

namespace uke {

void Mailbox::post(Task task) { enqueue(std::move(task)); }

void Mailbox::call(Task task) {
    if (QThread::currentThread() == thread()) {
        task();
        return;
    }
    const uint64_t number = enqueue(std::move(task));
    std::unique_lock lock(mutex_);
    finished_.wait(lock, [&] { return done_ >= number; });
}

uint64_t Mailbox::enqueue(Task task) {
    uint64_t number = 0;
    {
        std::lock_guard lock(mutex_);
        tasks_.push_back(std::move(task));
        number = ++posted_;
    }
    // The event carries nothing and is never read: it only wakes this object's
    // thread, which then takes whatever is queued.
    QCoreApplication::postEvent(this, new QEvent(QEvent::User));
    return number;
}

bool Mailbox::event(QEvent* e) {
    // Any event will do to drain the queue; reading this one's type would itself
    // look like a race, since Qt filled it in.
    drain();
    return QObject::event(e);
}

void Mailbox::drain() {
    for (;;) {
        Task task;
        {
            std::lock_guard lock(mutex_);
            if (tasks_.empty())
                return;
            task = std::move(tasks_.front());
            tasks_.pop_front();
        }
        task();
        {
            std::lock_guard lock(mutex_);
            ++done_;
        }
        finished_.notify_all();
    }
}

namespace {

std::mutex poolMutex;
std::deque<std::function<void()>> poolTasks;

} // namespace

void runInPool(std::function<void()> task) {
    {
        std::lock_guard lock(poolMutex);
        poolTasks.push_back(std::move(task));
    }
    // Each job takes the oldest task, so the pool carries no data of its own.
    QThreadPool::globalInstance()->start([] {
        std::function<void()> next;
        {
            std::lock_guard lock(poolMutex);
            next = std::move(poolTasks.front());
            poolTasks.pop_front();
        }
        next();
    });
}

} // namespace uke
