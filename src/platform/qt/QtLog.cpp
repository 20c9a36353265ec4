// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#include <cstdio>
#include <mutex>

#include "platform/qt/QtPorts.h"

namespace uke {

void QtLog::log(const std::string& line) {
    if (quiet)
        return;
    static std::mutex mutex;
    std::lock_guard lock(mutex);
    std::fprintf(stderr, "%s\n", line.c_str());
}

} // namespace uke
