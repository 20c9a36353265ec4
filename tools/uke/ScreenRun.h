// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <memory>
#include <string>
#include <vector>

#include "ScreenScript.h"
#include "app/TunerApp.h"
#include "audio/PitchSource.h"
#include "base/LayoutClass.h"
#include "platform/virtual/VirtualPlatform.h"

namespace uke::tool {

// The app's start-up on virtual ports: the delegate picks the layout and the tuner
// screen loads and appears. A null `store` keeps the settings in memory.
class ScreenRun {
public:
    ScreenRun(const DeviceClass& device, const std::string& language, SettingsStore* store);

    // Runs the steps in order; false at the first one the app refuses, with
    // "--do 'STEP': why" in `error`.
    bool play(const std::vector<Step>& steps, std::string& error);

    const TunerApp& app() const { return *app_; }
    const VirtualPlatform& platform() const { return platform_; }

private:
    VirtualPlatform platform_;
    SilentPitchSource listener_;
    std::unique_ptr<TunerApp> app_;
};

} // namespace uke::tool
