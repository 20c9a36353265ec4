// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <memory>
#include <ostream>
#include <string>

#include "app/TunerApp.h"
#include "base/LayoutClass.h"
#include "base/OutletChanges.h"
#include "platform/Services.h"

namespace uke::tool {

struct TunerOptions {
    long tuning = 1;
    long a4 = 440;
    std::optional<long> sensitivity; // slider step moved to before listening
    DeviceClass device;
    bool json = false;
};

// The tuner screen as the app runs it, on whatever ports it is given, printing one
// line after every tick that changed what the player sees.
class TunerSession {
public:
    // `sounds` must be the factory inside `services` whose played files it counts.
    TunerSession(Services services, PitchSource& listener, const TunerOptions& options, std::ostream& out);

    // Start-up and the screen's first appearance; stores the calibration first.
    void start();
    // Compares the screen with the last line printed and prints when it changed.
    // `beeped` says a confirmation beep started since the last call.
    void afterTick(double seconds, bool beeped);

    TunerScreenModel& screen() { return app_.tunerScreen(); }

private:
    std::string line(double seconds, bool beeped) const;

    Services s_;
    TunerOptions options_;
    std::ostream& out_;
    TunerApp app_;
    OutletChanges shown_;
};

// Reads --tuning, --a4, --sensitivity, --device and --format into `o`; false with a
// one-line reason in `error`.
class Args;
bool readTunerOptions(Args& args, TunerOptions& o, std::string& error);

} // namespace uke::tool
