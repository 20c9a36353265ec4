// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <deque>
#include <memory>
#include <mutex>

#include "platform/RunLoop.h"

namespace uke {

// Runs tasks one at a time, in the order they were added, on the run loop's
// background workers. Nothing needs a thread of its own: a drain is started on a
// worker when the first task arrives and ends when the queue is empty. Tasks still
// waiting when the queue is destroyed are dropped.
class SerialQueue {
public:
    explicit SerialQueue(RunLoop& loop);
    ~SerialQueue();
    SerialQueue(const SerialQueue&) = delete;
    SerialQueue& operator=(const SerialQueue&) = delete;

    void addOperation(RunLoop::Task task);

private:
    struct State {
        std::mutex mutex;
        std::deque<RunLoop::Task> tasks;
        bool draining = false;
        bool closed = false;
    };
    static void drain(const std::shared_ptr<State>& state);

    RunLoop& loop_;
    std::shared_ptr<State> state_;
};

} // namespace uke
