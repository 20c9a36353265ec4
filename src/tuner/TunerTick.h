#pragma once
#include <string>

#include "audio/PitchSource.h"
#include "base/SharedState.h"
#include "platform/RunLoop.h"
#include "tuner/ConfirmationBeep.h"
#include "tuner/ReviewHook.h"
#include "tuner/StringIndication.h"
#include "tuner/TunerScreenModel.h"

namespace uke {

// The 10 ms tick: reads the listener, gates on the sensitivity thresholds and
// matches the estimate against the selected tuning's strings.
class TunerTick {
public:
    TunerTick(RunLoop& runLoop, PitchSource& listener, SharedState& state, TunerScreenModel& screen,
              StringIndication& indication, ConfirmationBeep& beep, ReviewHook& review)
        : runLoop_(runLoop), listener_(listener), state_(state), screen_(screen), indication_(indication), beep_(beep),
          review_(review) {}

    // Starts the listener and, once per life, the repeating tick.
    void start();
    void tickFree();

    // Left by one tick for the next; the frequency is written and never read.
    double lastFrequency() const { return lastFrequency_; }
    const std::string& lastTunedFrequencyText() const { return lastTunedFrequencyText_; }
    const std::string& lastTunedNoteText() const { return lastTunedNoteText_; }

private:
    RunLoop& runLoop_;
    PitchSource& listener_;
    SharedState& state_;
    TunerScreenModel& screen_;
    StringIndication& indication_;
    ConfirmationBeep& beep_;
    ReviewHook& review_;
    bool timerScheduled_ = false;
    double lastFrequency_ = 0.0;
    std::string lastTunedFrequencyText_;
    std::string lastTunedNoteText_;
};

} // namespace uke
