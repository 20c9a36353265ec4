// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <map>

#include "platform/SettingsStore.h"

namespace uke {

class MemorySettingsStore : public SettingsStore {
public:
    std::optional<SettingValue> value(const std::string& key) const override;
    void setValue(const std::string& key, const SettingValue& value) override { values_[key] = value; }
    void wipeDomain() override { values_.clear(); }
    void synchronize() override { ++synchronizeCount; }
    std::vector<std::string> keys() const override;

    int synchronizeCount = 0;

protected:
    std::map<std::string, SettingValue> values_;
};

// A store kept in an INI-style text file: `key=value` lines under a [General]
// section, in the text form of settingToText. Used by `uke screen --settings`.
class IniFileSettingsStore : public MemorySettingsStore {
public:
    explicit IniFileSettingsStore(std::string path) : path_(std::move(path)) {}
    // False, with the reason in `error`, when the file exists but cannot be read.
    bool load(std::string& error);
    void synchronize() override;
    bool writeError() const { return writeError_; }

private:
    std::string path_;
    bool writeError_ = false;
};

} // namespace uke
