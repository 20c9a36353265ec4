// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <string>

#include "audio/PitchSource.h"
#include "base/SharedState.h"
#include "base/TunerScreenModel.h"
#include "base/TuningCatalogue.h"
#include "platform/RunLoop.h"
#include "rating/ReviewHook.h"
#include "sounds/ConfirmationBeep.h"
#include "tuner/StringIndication.h"

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
    // What the last drawing tick put on the read-out, as numbers. A tick that
    // would draw the same again, on a read-out nobody has written since, draws
    // nothing: no text is formatted and the view is not told of a change.
    struct Drawn {
        enum class Kind : uint8_t { Nothing, Silence, Reading, Match };
        Kind kind = Kind::Nothing;
        float frequency = 0.0f;          // Reading: the estimate shown
        const MatchRule* rule = nullptr; // Match: the string in tune
        double target = 0.0;             // Match: its target, shown instead of the estimate
        uint64_t writes = 0;             // the indication's writes just after drawing
        bool operator==(const Drawn&) const = default;
    };
    // Whether `next` is already on screen; if not, the caller draws it and calls drew().
    bool drawn(Drawn next) const;
    void drew(Drawn next);

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
    Drawn drawn_;
    Lifetime lifetime_; // its timer and delayed messages stop reaching this object when it goes
};

} // namespace uke
