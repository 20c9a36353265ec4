#pragma once
#include <cstdint>

#include "base/SharedState.h"
#include "platform/DeviceInfo.h"
#include "platform/Log.h"
#include "tuner/TunerScreenModel.h"
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

private:
    Log& log_;
    DeviceInfo& device_;
    SharedState& state_;
    TunerScreenModel& screen_;
    TuningDisplay& tunings_;
};

} // namespace uke
