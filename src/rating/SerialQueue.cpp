// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#include "rating/SerialQueue.h"

namespace uke {

SerialQueue::SerialQueue(RunLoop& loop) : loop_(loop), state_(std::make_shared<State>()) {}

SerialQueue::~SerialQueue() {
    std::lock_guard lock(state_->mutex);
    state_->closed = true;
    state_->tasks.clear();
}

void SerialQueue::addOperation(RunLoop::Task task) {
    {
        std::lock_guard lock(state_->mutex);
        state_->tasks.push_back(std::move(task));
        if (state_->draining)
            return;
        state_->draining = true;
    }
    loop_.dispatchBackground([state = state_] { drain(state); });
}

void SerialQueue::drain(const std::shared_ptr<State>& state) {
    for (;;) {
        RunLoop::Task task;
        {
            std::lock_guard lock(state->mutex);
            if (state->closed || state->tasks.empty()) {
                state->draining = false;
                return;
            }
            task = std::move(state->tasks.front());
            state->tasks.pop_front();
        }
        task();
    }
}

} // namespace uke
