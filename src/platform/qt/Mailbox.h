// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Work handed to the thread a QObject lives on, through a queue of our own.
//
// Qt's queued and blocking-queued calls do the same, but they hand the work over
// under Qt's own locks, which the thread sanitizer cannot see (Qt is not built
// with it): every hand-over would be reported as a race, and a real race in the
// work itself would drown among them. The queue here is guarded by a std::mutex,
// which the sanitizer sees, so only real races are left to report.
#include <QObject>
#include <condition_variable>
#include <cstdint>
#include <deque>
#include <functional>
#include <mutex>

namespace uke {

class Mailbox : public QObject {
public:
    using Task = std::function<void()>;

    explicit Mailbox(QObject* parent = nullptr) : QObject(parent) {}

    // From any thread: the task runs later on this object's thread.
    void post(Task task);

    // From any thread: the task runs on this object's thread, and the call returns
    // once it has. On that thread already, it runs at once.
    void call(Task task);

protected:
    bool event(QEvent* e) override;

private:
    uint64_t enqueue(Task task);
    void drain();

    std::mutex mutex_; // guards tasks_ and the counts
    std::condition_variable finished_;
    std::deque<Task> tasks_;
    uint64_t posted_ = 0; // tasks ever queued; a task's number is the count after it
    uint64_t done_ = 0;   // tasks ever run, in the order queued
};

// From any thread: the task runs on a thread of Qt's global pool, handed over
// through a queue of our own for the same reason.
void runInPool(std::function<void()> task);

} // namespace uke
