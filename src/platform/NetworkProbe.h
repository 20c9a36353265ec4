// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <optional>
#include <string>

namespace uke {

class NetworkProbe {
public:
    struct Flags {
        bool reachable = false;
        bool connectionRequired = false;
        bool transientConnection = false;
    };
    virtual ~NetworkProbe() = default;
    // Reachability of the zero address, or nothing when the flags cannot be read.
    virtual std::optional<Flags> reachabilityFlags() = 0;
    // Starts a fetch that nobody waits for. True when the task is running (not suspended).
    virtual bool startFetch(const std::string& url, double timeoutSeconds) = 0;
};

} // namespace uke
