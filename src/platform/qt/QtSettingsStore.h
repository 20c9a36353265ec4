// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QSettings>
#include <memory>

#include "platform/Log.h"
#include "platform/SettingsStore.h"

namespace uke {

// The settings store on QSettings (an INI file in the user's configuration folder).
// Values are kept in the text form of settingToText so that types survive the file.
// A damaged file is moved aside (nothing is deleted) and the app starts afresh.
// A file that cannot be written (read-only, a full disk, a folder in its place)
// is left as it is; the settings are kept in memory and written when it can be.
class QtSettingsStore : public SettingsStore {
public:
    // `path` empty: the standard location for the app.
    QtSettingsStore(const QString& path, Log& log);

    std::optional<SettingValue> value(const std::string& key) const override;
    void setValue(const std::string& key, const SettingValue& value) override;
    void wipeDomain() override;
    void synchronize() override;
    std::vector<std::string> keys() const override;

    QString fileName() const { return settings_->fileName(); }

private:
    std::unique_ptr<QSettings> settings_;
    Log& log_;
    bool writeFailed_ = false; // the last write failed, and that was said
};

} // namespace uke
