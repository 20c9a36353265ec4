// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <memory>

#include "platform/Services.h"
#include "platform/VirtualRunLoop.h"
#include "platform/virtual/Fakes.h"
#include "platform/virtual/MemorySettingsStore.h"

namespace uke {

// One of every virtual port, owned together; services() hands them to the core.
struct VirtualPlatform {
    VirtualRunLoop runLoop;
    MemorySettingsStore memoryStore;
    SettingsStore* store = &memoryStore;  // point elsewhere (an INI file) before services()
    MapStringTable strings;
    RecordingLog log;
    FixedDeviceInfo device;
    FakeAudioCapture capture;
    RecordingAudioOutput output;
    RecordingSoundPlayerFactory sounds;
    RecordingUrlOpener urls;
    FakeNetworkProbe network;
    FakeStoreReview storeReview;
    RecordingAlertPresenter alerts;
    FakeIdleTimer idleTimer;
    std::string resourcePath = "/res";

    Services services() {
        return Services{runLoop, *store, strings, log,         device, capture,   output,
                        sounds,  urls,   network, storeReview, alerts, idleTimer, resourcePath};
    }
};

} // namespace uke
