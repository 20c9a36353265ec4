// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/OutletJson.h"

#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstdlib>

namespace uke {

namespace {
std::string hiddenField(bool hidden) { return std::string("\"hidden\": ") + (hidden ? "true" : "false"); }
std::string boolText(bool b) { return b ? "true" : "false"; }
} // namespace

std::string jsonQuoted(std::string_view s) {
    std::string out = "\"";
    for (const char ch : s) {
        const auto c = static_cast<unsigned char>(ch);
        switch (c) {
        case '"': out += "\\\""; break;
        case '\\': out += "\\\\"; break;
        case '\n': out += "\\n"; break;
        case '\r': out += "\\r"; break;
        case '\t': out += "\\t"; break;
        default:
            if (c < 0x20) {
                char buf[8];
                std::snprintf(buf, sizeof buf, "\\u%04x", c);
                out += buf;
            } else {
                out += ch;
            }
        }
    }
    return out + "\"";
}

std::string jsonNumber(double v) {
    if (!std::isfinite(v))
        return "null";
    char buf[64];
#if defined(__cpp_lib_to_chars)
    const auto [end, ec] = std::to_chars(buf, buf + sizeof buf, v);
    std::string s(buf, ec == std::errc{} ? end : buf);
#else
    // The browser build's library has no floating-point to_chars: the fewest
    // digits that read back as exactly `v`, which JSON readers take alike.
    for (int digits = 1; digits <= 17; ++digits) {
        std::snprintf(buf, sizeof buf, "%.*g", digits, v);
        if (std::strtod(buf, nullptr) == v)
            break;
    }
    std::string s(buf);
#endif
    if (s.find_first_of(".e") == std::string::npos)
        s += ".0";
    return s;
}

std::string outletJson(const Label& o) {
    return "{\"text\": " + jsonQuoted(o.text) + ", " + hiddenField(o.hidden) + "}";
}

std::string outletJson(const ImageView& o) {
    return "{\"image\": " + jsonQuoted(o.image) + ", " + hiddenField(o.hidden) + "}";
}

std::string outletJson(const Button& o) {
    std::string out = "{\"title\": " + jsonQuoted(o.title) + ", ";
    if (!o.image.empty())
        out += "\"image\": " + jsonQuoted(o.image) + ", ";
    return out + hiddenField(o.hidden) + "}";
}

std::string outletJson(const Switch& o) { return "{\"on\": " + boolText(o.on) + ", " + hiddenField(o.hidden) + "}"; }

std::string outletJson(const Slider& o) {
    return "{\"value\": " + jsonNumber(o.value) + ", \"minimum\": " + jsonNumber(o.minimum) +
           ", \"maximum\": " + jsonNumber(o.maximum) + ", " + hiddenField(o.hidden) + "}";
}

std::string outletJson(const Stepper& o) {
    return "{\"value\": " + jsonNumber(o.value) + ", \"minimum\": " + jsonNumber(o.minimum) +
           ", \"maximum\": " + jsonNumber(o.maximum) + ", \"stepValue\": " + jsonNumber(o.stepValue) + ", " +
           hiddenField(o.hidden) + "}";
}

std::string outletJson(const Picker& o) {
    std::string rows = "[";
    for (size_t i = 0; i < o.rows.size(); ++i)
        rows += (i ? ", " : "") + jsonQuoted(o.rows[i]);
    return "{\"value\": " + std::to_string(o.selectedRow) + ", \"rows\": " + rows + "], \"tag\": " +
           std::to_string(o.tag) + ", \"scale\": " + jsonNumber(o.scale) + ", " + hiddenField(o.hidden) + "}";
}

std::string settingJson(const SettingValue& v) {
    if (const bool* b = std::get_if<bool>(&v))
        return boolText(*b);
    if (const long* i = std::get_if<long>(&v))
        return std::to_string(*i);
    if (const double* d = std::get_if<double>(&v))
        return jsonNumber(*d);
    return jsonQuoted(std::get<std::string>(v));
}

} // namespace uke
