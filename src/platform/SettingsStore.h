// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace uke {

using SettingValue = std::variant<bool, long, double, std::string>;

// A per-application key-value store. Backends hold raw values; the typed accessors
// below apply one set of conversion rules for every backend: a boolean reads back
// as the integer 0 or 1, a missing key reads as 0 / 0.0 / "", numbers stored as
// text are parsed, and text "true"/"false" counts as a boolean.
class SettingsStore {
public:
    virtual ~SettingsStore() = default;

    virtual std::optional<SettingValue> value(const std::string& key) const = 0;
    virtual void setValue(const std::string& key, const SettingValue& value) = 0;
    // Replaces the whole domain with an empty one.
    virtual void wipeDomain() = 0;
    virtual void synchronize() = 0;
    virtual std::vector<std::string> keys() const = 0;

    bool boolForKey(const std::string& key) const;
    long integerForKey(const std::string& key) const;
    float floatForKey(const std::string& key) const;
    double doubleForKey(const std::string& key) const;
    std::string stringForKey(const std::string& key) const;
    bool hasKey(const std::string& key) const { return value(key).has_value(); }

    void setBool(const std::string& key, bool v) { setValue(key, SettingValue{v}); }
    void setInteger(const std::string& key, long v) { setValue(key, SettingValue{v}); }
    void setDouble(const std::string& key, double v) { setValue(key, SettingValue{v}); }
    void setString(const std::string& key, const std::string& v) { setValue(key, SettingValue{v}); }
};

// A stored number as a whole number: truncated toward zero, beyond the range of
// `long` the nearest end of it, not-a-number 0.
long wholeNumber(double d);
// A stored count plus one, which stays at the end of the range rather than wrap.
long countedOnce(long count);

// Text form used by file-backed stores and by `uke screen`: booleans as true/false,
// integers plainly, doubles in the fewest digits that read back the same, and text
// as it is unless it would read back as something else, then quoted.
std::string settingToText(const SettingValue& v);
// Reads back what settingToText wrote.
SettingValue settingFromText(const std::string& text);

} // namespace uke
