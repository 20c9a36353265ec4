// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <string>

#include "base/SharedState.h"
#include "base/TunerScreenModel.h"
#include "platform/DeviceInfo.h"
#include "platform/Log.h"
#include "platform/RunLoop.h"
#include "rating/ReviewHook.h"
#include "settings/NoteNamePicker.h"
#include "settings/SettingsPanel.h"
#include "tuner/StringIndication.h"
#include "tuner/TuningDisplay.h"

namespace uke {

class ChordsViewController;

// Stepping through the tunings, the chord chart that goes with each, and handing
// that chart to the chord library when it opens. A step redraws the concerns that
// depend on the tuning, in the order the screen has always used.
class TuningNavigator {
public:
    struct Redraws {
        TuningDisplay& tunings;
        StringIndication& indication;
        NoteNamePicker& notes;
        SettingsPanel& settings;
        ReviewHook& review;
    };

    TuningNavigator(RunLoop& runLoop, DeviceInfo& device, Log& log, SharedState& state, TunerScreenModel& screen,
                    Redraws redraws)
        : runLoop_(runLoop), device_(device), log_(log), state_(state), screen_(screen), r_(redraws) {}

    void showNextTuning();
    void showPreviousTuning();
    void prepareForSegue(const std::string& identifier, ChordsViewController& destination);

private:
    // What both directions redraw after the step, in the screen's order.
    void redrawAfterStep(bool settingsCaptions);

    RunLoop& runLoop_;
    DeviceInfo& device_;
    Log& log_;
    SharedState& state_;
    TunerScreenModel& screen_;
    Redraws r_;
    Lifetime lifetime_; // its delayed messages stop reaching this object when it goes
};

} // namespace uke
