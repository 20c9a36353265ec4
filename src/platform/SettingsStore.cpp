#include "platform/SettingsStore.h"

#include <cerrno>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>

namespace uke {

namespace {

struct Numeric {
    bool ok = false;
    double value = 0.0;
};

Numeric parseNumber(const std::string& s) {
    if (s == "true" || s == "YES")
        return {true, 1.0};
    if (s == "false" || s == "NO")
        return {true, 0.0};
    if (s.empty())
        return {};
    errno = 0;
    char* end = nullptr;
    const double d = std::strtod(s.c_str(), &end);
    if (end == s.c_str() || errno == ERANGE)
        return {};
    return {true, d};
}

double asDouble(const SettingValue& v) {
    if (const auto* b = std::get_if<bool>(&v))
        return *b ? 1.0 : 0.0;
    if (const auto* l = std::get_if<long>(&v))
        return static_cast<double>(*l);
    if (const auto* d = std::get_if<double>(&v))
        return *d;
    const auto n = parseNumber(std::get<std::string>(v));
    return n.ok ? n.value : 0.0;
}

} // namespace

bool SettingsStore::boolForKey(const std::string& key) const {
    const auto v = value(key);
    return v && asDouble(*v) != 0.0;
}

long SettingsStore::integerForKey(const std::string& key) const {
    const auto v = value(key);
    if (!v)
        return 0;
    if (const auto* l = std::get_if<long>(&*v))
        return *l;
    const double d = asDouble(*v);
    if (!std::isfinite(d))
        return 0;
    // A number beyond the integer range (a damaged file) reads as the nearest
    // end of it; converting it as it stands is undefined.
    constexpr double kLongEnd = 9223372036854775808.0; // 2^63
    if (d >= kLongEnd)
        return std::numeric_limits<long>::max();
    if (d < -kLongEnd)
        return std::numeric_limits<long>::min();
    return static_cast<long>(d);
}

float SettingsStore::floatForKey(const std::string& key) const {
    const auto v = value(key);
    return v ? static_cast<float>(asDouble(*v)) : 0.0f;
}

double SettingsStore::doubleForKey(const std::string& key) const {
    const auto v = value(key);
    return v ? asDouble(*v) : 0.0;
}

std::string SettingsStore::stringForKey(const std::string& key) const {
    const auto v = value(key);
    if (!v)
        return {};
    if (const auto* s = std::get_if<std::string>(&*v))
        return *s;
    return settingToText(*v);
}

std::string settingToText(const SettingValue& v) {
    if (const auto* b = std::get_if<bool>(&v))
        return *b ? "true" : "false";
    if (const auto* l = std::get_if<long>(&v))
        return std::to_string(*l);
    if (const auto* d = std::get_if<double>(&v)) {
        char buf[40];
        std::snprintf(buf, sizeof buf, "%.17g", *d);
        std::string s = buf;
        // Keep a double recognisable as one when read back.
        if (s.find_first_of(".eEn") == std::string::npos)
            s += ".0";
        return s;
    }
    return std::get<std::string>(v);
}

SettingValue settingFromText(const std::string& text) {
    if (text == "true")
        return true;
    if (text == "false")
        return false;
    if (!text.empty()) {
        errno = 0;
        char* end = nullptr;
        const long l = std::strtol(text.c_str(), &end, 10);
        if (*end == '\0' && errno != ERANGE)
            return l;
        errno = 0;
        const double d = std::strtod(text.c_str(), &end);
        if (*end == '\0' && errno != ERANGE && text.find_first_of(".eE") != std::string::npos)
            return d;
    }
    return text;
}

} // namespace uke
