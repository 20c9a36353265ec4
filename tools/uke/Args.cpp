// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#include "Args.h"

#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstdlib>

#include "Language.h"

namespace uke::tool {

bool Args::parse(const std::vector<std::string>& words) {
    for (size_t i = 0; i < words.size(); ++i) {
        const std::string& w = words[i];
        if (w.size() > 2 && w.compare(0, 2, "--") == 0) {
            const std::string name = w.substr(2);
            if (flags_.count(name)) {
                flagsSeen_.insert(name);
            } else if (valued_.count(name)) {
                if (i + 1 >= words.size()) {
                    error_ = "option --" + name + " needs a value";
                    return false;
                }
                if (values_.count(name) && !repeated_.count(name)) {
                    error_ = "option --" + name + " given twice";
                    return false;
                }
                values_[name].push_back(words[++i]);
            } else {
                error_ = "unknown option " + w;
                return false;
            }
        } else {
            positional_.push_back(w);
        }
    }
    return true;
}

std::optional<std::string> Args::value(const std::string& name) const {
    const auto it = values_.find(name);
    if (it == values_.end() || it->second.empty())
        return std::nullopt;
    return it->second.back();
}

std::vector<std::string> Args::values(const std::string& name) const {
    const auto it = values_.find(name);
    return it == values_.end() ? std::vector<std::string>{} : it->second;
}

bool Args::number(const std::string& name, double lo, double hi, double& out) {
    const auto v = value(name);
    if (!v)
        return true;
    char* end = nullptr;
    const double d = std::strtod(v->c_str(), &end);
    if (v->empty() || *end != '\0' || !std::isfinite(d) || d < lo || d > hi) {
        char buf[160];
        std::snprintf(buf, sizeof buf, "--%s needs a number from %g to %g, not '%s'", name.c_str(), lo, hi, v->c_str());
        error_ = buf;
        return false;
    }
    out = d;
    return true;
}

bool Args::integer(const std::string& name, long lo, long hi, long& out) {
    const auto v = value(name);
    if (!v)
        return true;
    long n = 0;
    const auto [end, ec] = std::from_chars(v->data(), v->data() + v->size(), n);
    if (ec != std::errc{} || end != v->data() + v->size() || n < lo || n > hi) {
        error_ = "--" + name + " needs a whole number from " + std::to_string(lo) + " to " + std::to_string(hi) +
                 ", not '" + *v + "'";
        return false;
    }
    out = n;
    return true;
}

bool Args::choice(const std::string& name, const std::vector<std::string>& choices, std::string& out) {
    const auto v = value(name);
    if (!v)
        return true;
    for (const auto& c : choices)
        if (*v == c) {
            out = c;
            return true;
        }
    std::string list;
    for (const auto& c : choices)
        list += (list.empty() ? "" : "|") + c;
    error_ = "--" + name + " must be " + list + ", not '" + *v + "'";
    return false;
}

bool Args::device(const std::string& name, DeviceClass& out) {
    const auto v = value(name);
    if (!v)
        return true;
    const auto parsed = DeviceClass::parse(*v);
    if (!parsed) {
        error_ = "unknown device class '" + *v + "' (use phone-HEIGHT or pad-HEIGHT, e.g. phone-844)";
        return false;
    }
    out = *parsed;
    return true;
}

bool Args::language(const std::string& name, std::string& out) {
    const auto v = value(name);
    if (!v)
        return true;
    const std::string code = primaryLanguage(*v);
    if (code.empty()) {
        error_ = "--" + name + " needs a language code such as en or es, not '" + *v + "'";
        return false;
    }
    out = code;
    return true;
}

bool Args::positionalAtMost(size_t count, const std::string& hint) {
    if (positional_.size() <= count)
        return true;
    error_ = "unexpected argument '" + positional_[count] + "'" + hint;
    return false;
}

} // namespace uke::tool
