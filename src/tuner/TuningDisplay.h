// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "base/SharedState.h"
#include "base/TunerScreenModel.h"
#include "platform/DeviceInfo.h"
#include "platform/StringTable.h"

namespace uke {

// What the screen shows of the selected tuning: its name, the string notes, the
// arrows that bound navigation and the chord-library icon.
class TuningDisplay {
public:
    TuningDisplay(const StringTable& strings, DeviceInfo& device, const SharedState& state, TunerScreenModel& screen)
        : strings_(strings), device_(device), state_(state), screen_(screen) {}

    void displayTunings();
    void displayNotes();

private:
    const StringTable& strings_;
    DeviceInfo& device_;
    const SharedState& state_;
    TunerScreenModel& screen_;
};

} // namespace uke
