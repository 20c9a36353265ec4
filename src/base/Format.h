// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <string>

namespace uke {

// printf-style formatting for log lines and texts whose exact form matters: the
// argument list is checked against the format at compile time.
std::string format(const char* fmt, ...) __attribute__((format(printf, 1, 2)));

} // namespace uke
