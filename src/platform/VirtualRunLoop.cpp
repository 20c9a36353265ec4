// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/VirtualRunLoop.h"

#include <algorithm>
#include <cmath>

namespace uke {

int64_t VirtualRunLoop::toUs(double seconds) {
    if (!(seconds > 0.0))
        return 0;
    return static_cast<int64_t>(std::llround(seconds * 1e6));
}

void VirtualRunLoop::schedule(int64_t atUs, Entry entry) {
    queue_.emplace(std::make_tuple(atUs, seq_++), std::move(entry));
}

void VirtualRunLoop::performAfterDelay(double seconds, Task task) {
    schedule(nowUs_ + toUs(seconds), Entry{std::move(task), 0});
}

void VirtualRunLoop::scheduleRepeating(double intervalSeconds, Task task) {
    const int64_t interval = std::max<int64_t>(1, toUs(intervalSeconds));
    schedule(nowUs_ + interval, Entry{std::move(task), interval});
}

void VirtualRunLoop::advanceTo(double seconds) {
    const int64_t target = std::max(nowUs_, toUs(seconds));
    while (!queue_.empty()) {
        auto it = queue_.begin();
        const int64_t at = std::get<0>(it->first);
        if (at > target)
            break;
        Entry entry = std::move(it->second);
        queue_.erase(it);
        nowUs_ = at;
        if (entry.intervalUs > 0)
            schedule(at + entry.intervalUs, Entry{entry.task, entry.intervalUs});
        else
            ++messagesRun_;
        entry.task();
    }
    nowUs_ = target;
}

void VirtualRunLoop::advanceTo(double seconds, double timersFrom) {
    const int64_t from = std::min(toUs(timersFrom), std::max(nowUs_, toUs(seconds)));
    if (from <= nowUs_)
        return advanceTo(seconds);
    std::map<std::tuple<int64_t, uint64_t>, Entry> kept;
    for (auto& [when, entry] : queue_) {
        int64_t at = std::get<0>(when);
        if (entry.intervalUs > 0 && at < from)
            at += (from - at + entry.intervalUs - 1) / entry.intervalUs * entry.intervalUs;
        kept.emplace(std::make_tuple(at, std::get<1>(when)), std::move(entry));
    }
    queue_ = std::move(kept);
    advanceTo(seconds);
}

std::optional<double> VirtualRunLoop::nextMessageDue() const {
    for (const auto& [when, entry] : queue_)
        if (entry.intervalUs == 0)
            return static_cast<double>(std::get<0>(when)) * 1e-6;
    return std::nullopt;
}

} // namespace uke
