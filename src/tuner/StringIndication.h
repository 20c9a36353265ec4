// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <cstdint>

#include "base/SharedState.h"
#include "base/TunerScreenModel.h"
#include "platform/DeviceInfo.h"
#include "platform/Log.h"
#include "tuner/TuningDisplay.h"

namespace uke {

// Which string is in tune: rings on the pegs, the string highlight, the lamp and
// the tuned-string marks, and the fixed picture of the demonstration build.
class StringIndication {
public:
    StringIndication(Log& log, DeviceInfo& device, SharedState& state, TunerScreenModel& screen, TuningDisplay& tunings)
        : log_(log), device_(device), state_(state), screen_(screen), tunings_(tunings) {}

    void displayTunedString(int64_t code);
    void displayNoStrings();
    void removeRings();
    void demoMode();

    // Counts the writes to the read-out, so that the tick can tell whether what it
    // drew last is still what the screen shows.
    uint64_t writes() const { return writes_; }

private:
    Log& log_;
    DeviceInfo& device_;
    SharedState& state_;
    TunerScreenModel& screen_;
    TuningDisplay& tunings_;
    uint64_t writes_ = 0;

    void wrote() {
        ++writes_;
        screen_.readoutChanged = true;
    }
};

} // namespace uke
