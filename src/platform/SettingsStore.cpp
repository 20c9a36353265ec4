// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/SettingsStore.h"

#include <algorithm>
#include <cctype>
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

// Not-a-number (a damaged file, or the text "nan") reads as a missing key: no
// comparison or conversion downstream is defined for it.
double asDouble(const SettingValue& v) {
    double d = 0.0;
    if (const auto* b = std::get_if<bool>(&v))
        d = *b ? 1.0 : 0.0;
    else if (const auto* l = std::get_if<long>(&v))
        d = static_cast<double>(*l);
    else if (const auto* x = std::get_if<double>(&v))
        d = *x;
    else if (const auto n = parseNumber(std::get<std::string>(v)); n.ok)
        d = n.value;
    return std::isnan(d) ? 0.0 : d;
}

// Text that the text form would read back as something else ("1.10" as a
// number, "true" as a boolean, spaces at an end trimmed, a line break as two
// lines) is written quoted, so that it stays the same text.
bool needsQuotes(const std::string& s) {
    if (!s.empty() && (s.front() == '"' || std::isspace(static_cast<unsigned char>(s.front())) ||
                       std::isspace(static_cast<unsigned char>(s.back()))))
        return true;
    if (s.find_first_of("\r\n") != std::string::npos)
        return true;
    const SettingValue back = settingFromText(s);
    const auto* text = std::get_if<std::string>(&back);
    return !text || *text != s;
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
    return wholeNumber(asDouble(*v));
}

float SettingsStore::floatForKey(const std::string& key) const {
    const auto v = value(key);
    if (!v)
        return 0.0f;
    // Beyond the float range the conversion is undefined; the nearest end is what
    // a damaged value means.
    constexpr double kFloatEnd = std::numeric_limits<float>::max();
    return static_cast<float>(std::clamp(asDouble(*v), -kFloatEnd, kFloatEnd));
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

long wholeNumber(double d) {
    if (std::isnan(d))
        return 0;
    // A number beyond the integer range (a damaged file) reads as the nearest
    // end of it; converting it as it stands is undefined.
    // The end is the type's own: `long` has 32 bits in the page's WebAssembly core.
    constexpr double kLongEnd = -static_cast<double>(std::numeric_limits<long>::min());
    if (d >= kLongEnd)
        return std::numeric_limits<long>::max();
    if (d < -kLongEnd)
        return std::numeric_limits<long>::min();
    return static_cast<long>(d);
}

long countedOnce(long count) { return count == std::numeric_limits<long>::max() ? count : count + 1; }

std::string settingToText(const SettingValue& v) {
    if (const auto* b = std::get_if<bool>(&v))
        return *b ? "true" : "false";
    if (const auto* l = std::get_if<long>(&v))
        return std::to_string(*l);
    if (const auto* d = std::get_if<double>(&v)) {
        // The shortest text that reads back as the same number: a date stays
        // exact, and 1.1 is written "1.1", not "1.1000000000000001".
        char buf[40];
        for (int digits = 15; digits <= 17; ++digits) {
            std::snprintf(buf, sizeof buf, "%.*g", digits, *d);
            if (std::strtod(buf, nullptr) == *d)
                break;
        }
        std::string s = buf;
        // Keep a double recognisable as one when read back.
        if (s.find_first_of(".eEn") == std::string::npos)
            s += ".0";
        return s;
    }
    const std::string& text = std::get<std::string>(v);
    if (!needsQuotes(text))
        return text;
    std::string quoted = "\"";
    for (const char c : text) {
        if (c == '"' || c == '\\' || c == '\n' || c == '\r')
            quoted += '\\';
        quoted += c == '\n' ? 'n' : c == '\r' ? 'r' : c;
    }
    return quoted + '"';
}

SettingValue settingFromText(const std::string& text) {
    if (text.size() >= 2 && text.front() == '"' && text.back() == '"') {
        std::string plain;
        for (size_t i = 1; i + 1 < text.size(); ++i) {
            char c = text[i];
            if (c == '\\' && i + 2 < text.size()) {
                c = text[++i];
                c = c == 'n' ? '\n' : c == 'r' ? '\r' : c;
            }
            plain += c;
        }
        return plain;
    }
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
