// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <memory>
#include <string>

#include "QmlAlertPresenter.h"
#include "platform/Services.h"
#include "platform/qt/QtPorts.h"
#include "platform/qt/QtRunLoop.h"
#include "platform/qt/ScreenSaverInhibitor.h"

namespace uke {

// The ports of one running app. The app gives every one its Qt implementation; a
// view test swaps the audio ports for virtual ones, so that it never opens the
// machine's microphone or speaker.
struct AppPorts {
    QtRunLoop runLoop;
    QtLog log;
    std::unique_ptr<SettingsStore> settings;
    const StringTable* strings = nullptr;
    std::unique_ptr<DeviceInfo> device;
    std::unique_ptr<AudioCapture> capture;
    std::unique_ptr<AudioOutput> output;
    std::unique_ptr<SoundPlayerFactory> sounds;
    std::unique_ptr<UrlOpener> urls;
    std::unique_ptr<NetworkProbe> network;
    std::unique_ptr<StoreReview> storeReview;
    QmlAlertPresenter alerts;
    std::unique_ptr<ScreenSaverInhibitor> idleTimer;
    // Folder of the sound files.
    std::string resourcePath;

    Services services() {
        return Services{runLoop, *settings, *strings,     log,    *device,    *capture,    *output,
                        *sounds, *urls,     *network,     *storeReview, alerts, *idleTimer, resourcePath};
    }
};

} // namespace uke
