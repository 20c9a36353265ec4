// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tuner/TunerTick.h"

#include "base/Format.h"
#include "base/TuningCatalogue.h"
#include "platform/Log.h"

namespace uke {

void TunerTick::start() {
    // The audio set-up of the listener reports its own failures; the screen goes on
    // without readings when there is no microphone.
    listener_.listen();
    if (!timerScheduled_) {
        timerScheduled_ = true;
        runLoop_.scheduleRepeating(0.01, lifetime_.guard([this] { tickFree(); }));
    }
}

bool TunerTick::drawn(Drawn next) const {
    next.writes = indication_.writes();
    return next == drawn_;
}

void TunerTick::drew(Drawn next) {
    next.writes = indication_.writes();
    drawn_ = next;
    screen_.readoutChanged = true;
}

void TunerTick::tickFree() {
    using Kind = Drawn::Kind;
    const float p = listener_.averagePower();
    const float f = listener_.frequency();
    if (!TuningCatalogue::contains(state_.chosenTuning))
        return;

    // The lower gate lets through only a level at or above the threshold, so a
    // level that is not a number fails it and clears the screen like silence.
    if (!(static_cast<double>(p) >= state_.bottomLimit) || f > 1000.0f) {
        if (const Drawn silence{Kind::Silence}; !drawn(silence)) {
            indication_.displayNoStrings();
            drew(silence);
        }
        return;
    }
    // Levels between the two thresholds leave the screen as the last tick left it.
    if (!(state_.topLimit < static_cast<double>(p)))
        return;

    lastFrequency_ = f;
    const double fd = f;
    for (const MatchRule& rule : TuningCatalogue::tuning(state_.chosenTuning).rules) {
        const StringTarget& t = state_.targets[rule.pitch];
        if (t.contains(fd)) {
            // While a string is in tune the read-out shows its exact target, so a
            // new estimate inside the window changes nothing on screen.
            if (const Drawn match{Kind::Match, 0.0f, &rule, t.target}; !drawn(match)) {
                screen_.tunedString.hidden = false;
                screen_.tunedString5.hidden = false;
                screen_.tunedStringiPad.hidden = false;
                screen_.noteDisplay.text = std::string(rule.label);
                lastTunedNoteText_ = screen_.noteDisplay.text;
                indication_.displayTunedString(rule.indication);
                screen_.lightLamp(true);
                screen_.freq_label.text = format("%.1fHz", t.target);
                lastTunedFrequencyText_ = screen_.freq_label.text;
                drew(match);
            }
            beep_.playSoundOnce(rule.slot >= 1 && rule.slot <= 3 ? rule.slot : 4);
            return;
        }
    }

    if (const Drawn reading{Kind::Reading, f}; !drawn(reading)) {
        screen_.freq_label.text = format("%.1fHz", fd);
        // Above 700 Hz the estimate is usually a harmonic: show the last in-tune result.
        if (f > 700.0f) {
            screen_.freq_label.text = lastTunedFrequencyText_;
            screen_.noteDisplay.text = lastTunedNoteText_;
        }
        drew(reading);
    }
    const auto& reached = state_.firstTuningBools;
    if (reached[0] == 1 && reached[1] == 1 && reached[2] == 1 && reached[3] == 1) {
        runLoop_.performAfterDelay(2.0, lifetime_.guard([this] { review_.promptToReview(); }));
        runLoop_.performAfterDelay(4.0, lifetime_.guard([this] { beep_.resetTuningBools(); }));
    }
}

} // namespace uke
