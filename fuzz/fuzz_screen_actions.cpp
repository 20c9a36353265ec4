// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
// Any text as `uke screen` actions, one --do per line: refused with one line or
// run to the end.
#include <cstdint>
#include <sstream>
#include <string>
#include <vector>

#include "Commands.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    std::vector<std::string> words{"screen"};
    std::istringstream lines(std::string(reinterpret_cast<const char*>(data), size));
    for (std::string line; std::getline(lines, line) && words.size() < 41;)
        words.insert(words.end(), {"--do", line});
    std::ostringstream out, err;
    uke::tool::run(words, out, err);
    return 0;
}
