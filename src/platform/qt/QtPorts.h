// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Qt implementations of the ports, made by the app at start.
#include <QString>
#include <memory>

#include "platform/Services.h"

class QQmlEngine;

namespace uke {

class DeviceClassInfo : public DeviceInfo {
public:
    DeviceClassInfo(Idiom idiom, double height, std::string version = "17.0")
        : idiom_(idiom), height_(height), version_(std::move(version)) {}
    Idiom idiom() const override { return idiom_; }
    double screenHeight() const override { return height_; }
    std::string systemVersion() const override { return version_; }

private:
    Idiom idiom_;
    double height_;
    std::string version_;
};

// Log lines go to standard error, one line each, whole even when threads log at once.
class QtLog : public Log {
public:
    void log(const std::string& line) override;
    bool quiet = false;
};

std::unique_ptr<AudioCapture> makeQtAudioCapture();
std::unique_ptr<AudioOutput> makeQtAudioOutput();
std::unique_ptr<SoundPlayerFactory> makeQtSoundPlayerFactory();
std::unique_ptr<UrlOpener> makeQtUrlOpener();
std::unique_ptr<NetworkProbe> makeQtNetworkProbe();
std::unique_ptr<StoreReview> makeQtStoreReview();

} // namespace uke
