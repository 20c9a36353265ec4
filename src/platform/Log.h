#pragma once
#include <string>

namespace uke {

class Log {
public:
    virtual ~Log() = default;
    virtual void log(const std::string& line) = 0;
};

} // namespace uke
