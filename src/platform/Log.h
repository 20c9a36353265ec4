// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <string>

namespace uke {

class Log {
public:
    virtual ~Log() = default;
    virtual void log(const std::string& line) = 0;
};

} // namespace uke
