// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The readers under test take a path: each input is written to a scratch file
// of this process, in the fastest folder there is.
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <unistd.h>

namespace uke::fuzz {

// Writes the input to the process's scratch file ending in `suffix` and returns its path.
inline std::string writeScratch(const uint8_t* data, size_t size, const char* suffix) {
    const char* tmp = std::getenv("TMPDIR");
    const std::string dir = access("/dev/shm", W_OK) == 0 ? "/dev/shm" : (tmp ? tmp : "/tmp");
    const std::string path = dir + "/uke-fuzz-" + std::to_string(getpid()) + suffix;
    if (std::FILE* f = std::fopen(path.c_str(), "wb")) {
        std::fwrite(data, 1, size, f);
        std::fclose(f);
    }
    return path;
}

} // namespace uke::fuzz
