// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <cstdint>
#include <map>
#include <optional>
#include <tuple>

#include "platform/RunLoop.h"

namespace uke {

// A run loop on a virtual clock. Nothing happens until the test (or `uke`) moves
// time forward; everything due by then runs in time order, ties in the order they
// were scheduled. Time is kept in whole microseconds so that a 10 ms timer lands
// exactly on 0.01, 0.02, ... however long it runs.
class VirtualRunLoop : public RunLoop {
public:
    explicit VirtualRunLoop(double epochSeconds = 1'700'000'000.0) : epoch_(epochSeconds) {}

    void performAfterDelay(double seconds, Task task) override;
    void scheduleRepeating(double intervalSeconds, Task task) override;
    double now() const override { return epoch_ + elapsed(); }
    void dispatchBackground(Task task) override { performAfterDelay(0.0, std::move(task)); }

    // Seconds since the loop was made.
    double elapsed() const { return static_cast<double>(nowUs_) * 1e-6; }
    // Runs everything due up to and including `seconds` after the start.
    void advanceTo(double seconds);
    void advanceBy(double seconds) { advanceTo(elapsed() + seconds); }
    // Runs what is due now (zero-delay messages) without moving the clock.
    void runPending() { advanceTo(elapsed()); }
    // Moves the wall clock without running anything (for day-long jumps).
    void shiftEpoch(double seconds) { epoch_ += seconds; }
    // Runs everything due up to `seconds`, but the repeating timers only from
    // `timersFrom` on: their firings before it are dropped, while delayed messages
    // still run at their own times. A front end whose clock was held back (a page
    // in the background) replays a short stretch of ticks, not hours of them.
    void advanceTo(double seconds, double timersFrom);
    size_t pendingCount() const { return queue_.size(); }
    // Delayed messages run so far (timers' firings not counted): a front end that
    // drives the clock compares every outlet only after one of them ran.
    uint64_t messagesRun() const { return messagesRun_; }
    // Seconds after the start when the next delayed message is due (timers not
    // counted), or nothing: a front end that moves the clock only when something
    // can happen wakes for it.
    std::optional<double> nextMessageDue() const;

private:
    struct Entry {
        Task task;
        int64_t intervalUs = 0;  // 0 = one-shot
    };
    static int64_t toUs(double seconds);
    void schedule(int64_t atUs, Entry entry);

    double epoch_;
    int64_t nowUs_ = 0;
    uint64_t seq_ = 0;
    uint64_t messagesRun_ = 0;
    std::map<std::tuple<int64_t, uint64_t>, Entry> queue_;
};

} // namespace uke
