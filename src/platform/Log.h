#pragma once
#include <string>

namespace uke {

class Log {
public:
    virtual ~Log() = default;
    virtual void log(const std::string& line) = 0;
};

// printf-style formatting for log lines whose exact text matters.
std::string format(const char* fmt, ...) __attribute__((format(printf, 1, 2)));

} // namespace uke
