// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <string>

#include "platform/AlertPresenter.h"
#include "platform/AudioCapture.h"
#include "platform/AudioOutput.h"
#include "platform/DeviceInfo.h"
#include "platform/IdleTimer.h"
#include "platform/Log.h"
#include "platform/NetworkProbe.h"
#include "platform/RunLoop.h"
#include "platform/SettingsStore.h"
#include "platform/SoundPlayer.h"
#include "platform/StoreReview.h"
#include "platform/StringTable.h"
#include "platform/UrlOpener.h"

namespace uke {

// Everything the core needs from the world, handed to controllers at start.
// The app fills it with the Qt ports; tests and `uke` with the virtual ones.
struct Services {
    RunLoop& runLoop;
    SettingsStore& settings;
    const StringTable& strings;
    Log& log;
    DeviceInfo& device;
    AudioCapture& capture;
    AudioOutput& output;
    SoundPlayerFactory& sounds;
    UrlOpener& urls;
    NetworkProbe& network;
    StoreReview& storeReview;
    AlertPresenter& alerts;
    IdleTimer& idleTimer;
    // Folder that holds the sound files ("beep-full.mp3", "A4.mp3", ...).
    std::string resourcePath;
};

} // namespace uke
