#pragma once
// The readers under test take a path: each input is written to one scratch file
// of the process, in the fastest folder there is.
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <unistd.h>

namespace uke::fuzz {

inline const std::string& scratchPath(const char* suffix) {
    static const std::string path = [suffix] {
        const char* dir = access("/dev/shm", W_OK) == 0 ? "/dev/shm" : (std::getenv("TMPDIR") ? std::getenv("TMPDIR") : "/tmp");
        return std::string(dir) + "/uke-fuzz-" + std::to_string(getpid()) + suffix;
    }();
    return path;
}

inline const std::string& writeScratch(const uint8_t* data, size_t size, const char* suffix) {
    const std::string& path = scratchPath(suffix);
    if (std::FILE* f = std::fopen(path.c_str(), "wb")) {
        std::fwrite(data, 1, size, f);
        std::fclose(f);
    }
    return path;
}

} // namespace uke::fuzz
