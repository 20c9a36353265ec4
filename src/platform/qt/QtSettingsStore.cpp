// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt/QtSettingsStore.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

namespace uke {

namespace {
// QSettings reads almost anything as INI; a file with bytes or lines that no INI
// writer makes is treated as damaged rather than half-read.
bool looksDamaged(const QString& file) {
    QFile f(file);
    if (!f.exists())
        return false;
    if (!f.open(QIODevice::ReadOnly))
        return true;
    const QByteArray data = f.readAll();
    if (data.contains('\0'))
        return true;
    const QString text = QString::fromUtf8(data);
    if (text.toUtf8() != data)
        return true;
    for (const QString& raw : text.split('\n')) {
        const QString line = raw.trimmed();
        if (line.isEmpty() || line.startsWith(';') || line.startsWith('#'))
            continue;
        if (line.startsWith('[') && line.endsWith(']'))
            continue;
        if (line.indexOf('=') > 0)
            continue;
        return true;
    }
    return false;
}

QString defaultPath() {
    return QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation) + "/settings.ini";
}
} // namespace

QtSettingsStore::QtSettingsStore(const QString& path, Log& log) : log_(log) {
    const QString file = path.isEmpty() ? defaultPath() : path;
    QDir().mkpath(QFileInfo(file).absolutePath());
    if (QFileInfo(file).isDir()) {
        // Someone's folder, not a damaged file: it is left alone, and the settings
        // live for this session only.
        log_.log(("Settings file " + file + " is a folder; settings will not be saved this session").toStdString());
        settings_ = std::make_unique<QSettings>(file, QSettings::IniFormat);
        writeFailed_ = true;
        return;
    }
    settings_ = std::make_unique<QSettings>(file, QSettings::IniFormat);
    if (settings_->status() != QSettings::NoError || looksDamaged(file)) {
        const QString reason = settings_->status() == QSettings::AccessError ? "it cannot be read" : "it is damaged";
        const QString aside = file + ".damaged-" + QDateTime::currentDateTimeUtc().toString("yyyyMMddHHmmss");
        settings_.reset();
        const bool moved = QFile::rename(file, aside);
        log_.log(("Settings file " + file + " was not used because " + reason +
                  (moved ? "; it was kept as " + aside : QString("; it was left in place")) +
                  ". Starting with fresh settings.")
                     .toStdString());
        settings_ = std::make_unique<QSettings>(moved ? file : aside + ".new", QSettings::IniFormat);
    }
}

std::optional<SettingValue> QtSettingsStore::value(const std::string& key) const {
    const QVariant v = settings_->value(QString::fromStdString(key));
    if (!v.isValid())
        return std::nullopt;
    return settingFromText(v.toString().toStdString());
}

void QtSettingsStore::setValue(const std::string& key, const SettingValue& value) {
    settings_->setValue(QString::fromStdString(key), QString::fromStdString(settingToText(value)));
}

void QtSettingsStore::wipeDomain() { settings_->clear(); }

void QtSettingsStore::synchronize() {
    if (writeFailed_) {
        // A QSettings keeps the first error it met for the rest of its life, so
        // whether this write works can only be told by a new one, given every
        // value again so that all of them are written.
        std::vector<std::pair<QString, QVariant>> all;
        for (const QString& key : settings_->allKeys())
            all.emplace_back(key, settings_->value(key));
        settings_ = std::make_unique<QSettings>(settings_->fileName(), QSettings::IniFormat);
        for (const QString& key : settings_->allKeys())
            settings_->remove(key);
        for (const auto& [key, value] : all)
            settings_->setValue(key, value);
    }
    settings_->sync();
    // QSettings keeps unsaved changes until a write succeeds, and the file is
    // replaced whole or not at all, so a failed write loses nothing: it is said
    // once, not at every change, and again when saving works once more.
    const bool failed = settings_->status() == QSettings::AccessError;
    if (failed && !writeFailed_)
        log_.log(("Settings could not be written to " + settings_->fileName() +
                  " (read-only, or the disk is full); they are kept until it can be")
                     .toStdString());
    else if (!failed && writeFailed_)
        log_.log(("Settings saved again to " + settings_->fileName()).toStdString());
    writeFailed_ = failed;
}

std::vector<std::string> QtSettingsStore::keys() const {
    std::vector<std::string> out;
    for (const QString& k : settings_->allKeys())
        out.push_back(k.toStdString());
    return out;
}

} // namespace uke
