// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Memory figures from /proc, for the benchmarks that report them.
#include <cstdlib>
#include <fstream>
#include <string>

namespace uke::bench {

// Kilobytes on the line of `path` that starts with `name` ("VmRSS:", "Pss:"), or -1.
inline long kilobytesIn(const std::string& path, const std::string& name) {
    std::ifstream in(path);
    for (std::string line; std::getline(in, line);)
        if (line.rfind(name, 0) == 0)
            return std::atol(line.c_str() + name.size());
    return -1;
}

} // namespace uke::bench
