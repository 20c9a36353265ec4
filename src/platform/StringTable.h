// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <optional>
#include <string>

namespace uke {

// Localised text by key. The main table is "Localizable"; other parts keep tables
// of their own (for example "RatingPromptLocalizable").
class StringTable {
public:
    virtual ~StringTable() = default;
    // The text for `key`, or nothing when the table lacks it.
    virtual std::optional<std::string> lookup(const std::string& key,
                                              const std::string& table) const = 0;

    // The platform's usual lookup with an empty default value.
    std::string localized(const std::string& key, const std::string& table = "Localizable") const {
        return lookup(key, table).value_or(std::string{});
    }
};

} // namespace uke
