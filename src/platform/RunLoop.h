// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <functional>
#include <memory>

namespace uke {

// The main thread's run loop as the core sees it. Delayed messages and repeating
// timers always fire on the main thread; background work runs on a worker of the
// platform's choosing and must hop back with dispatchMain before touching screens.
class RunLoop {
public:
    using Task = std::function<void()>;
    virtual ~RunLoop() = default;

    // Runs `task` on the main thread after `seconds` (0 = after the current event).
    virtual void performAfterDelay(double seconds, Task task) = 0;
    // Runs `task` every `intervalSeconds` on the main thread for the life of the loop.
    virtual void scheduleRepeating(double intervalSeconds, Task task) = 0;
    // Wall-clock time, seconds since 1970.
    virtual double now() const = 0;
    virtual void dispatchMain(Task task) { performAfterDelay(0.0, std::move(task)); }
    virtual void dispatchBackground(Task task) = 0;
};

// Ties delayed work to the life of its owner: a task wrapped by guard() does
// nothing once the Lifetime that wrapped it is gone, so a delayed message or a
// timer can never reach a destroyed object. An owner keeps one as a member and
// wraps every task that captures it. Tasks run, and owners die, on the main
// thread.
class Lifetime {
public:
    Lifetime() = default;
    Lifetime(const Lifetime&) = delete;
    Lifetime& operator=(const Lifetime&) = delete;

    RunLoop::Task guard(RunLoop::Task task) const {
        return [alive = std::weak_ptr<const bool>(alive_), task = std::move(task)] {
            if (!alive.expired())
                task();
        };
    }

private:
    std::shared_ptr<const bool> alive_ = std::make_shared<const bool>(true);
};

} // namespace uke
