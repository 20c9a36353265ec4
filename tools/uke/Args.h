// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "base/LayoutClass.h"

namespace uke::tool {

// A command's options: `--name value` for those in `valued`, `--name` alone for
// those in `flags`, repeatable where listed in `repeated`; other words are
// positional. parse() leaves a one-line reason in `error` when the words are off.
class Args {
public:
    Args(std::set<std::string> valued, std::set<std::string> flags, std::set<std::string> repeated = {})
        : valued_(std::move(valued)), flags_(std::move(flags)), repeated_(std::move(repeated)) {}

    bool parse(const std::vector<std::string>& words);
    const std::string& error() const { return error_; }

    bool has(const std::string& name) const { return values_.count(name) > 0 || flagsSeen_.count(name) > 0; }
    std::optional<std::string> value(const std::string& name) const;
    std::vector<std::string> values(const std::string& name) const;
    const std::vector<std::string>& positional() const { return positional_; }

    // Numeric readers: false (with error()) when present but not a number in range.
    bool number(const std::string& name, double lo, double hi, double& out);
    bool integer(const std::string& name, long lo, long hi, long& out);
    // One of `choices`, or false with error().
    bool choice(const std::string& name, const std::vector<std::string>& choices, std::string& out);
    // A device class (phone-844, pad-1194), or false with error().
    bool device(const std::string& name, DeviceClass& out);
    // A language's primary code ("es" from "es_ES.UTF-8"), or false with error().
    bool language(const std::string& name, std::string& out);
    // False with error() when more than `count` positional words were given; `hint`
    // follows the message, to say where such a word belongs.
    bool positionalAtMost(size_t count, const std::string& hint = {});

private:
    std::set<std::string> valued_, flags_, repeated_;
    std::map<std::string, std::vector<std::string>> values_;
    std::set<std::string> flagsSeen_;
    std::vector<std::string> positional_;
    std::string error_;
};

} // namespace uke::tool
