#include "tuner/TunerTick.h"

#include "platform/Log.h"
#include "tuner/TuningCatalogue.h"

namespace uke {

void TunerTick::start() {
    // The audio set-up of the listener reports its own failures; the screen goes on
    // without readings when there is no microphone.
    listener_.listen();
    if (!timerScheduled_) {
        timerScheduled_ = true;
        runLoop_.scheduleRepeating(0.01, [this] { tickFree(); });
    }
}

void TunerTick::tickFree() {
    const float p = listener_.averagePower();
    const float f = listener_.frequency();
    if (!TuningCatalogue::contains(state_.chosenTuning))
        return;

    // Both gates compare as written: a level that is not a number triggers neither,
    // so such a tick leaves the screen alone.
    if (state_.bottomLimit > static_cast<double>(p) || f > 1000.0f) {
        indication_.displayNoStrings();
        return;
    }
    // Levels between the two thresholds leave the screen as the last tick left it.
    if (!(state_.topLimit < static_cast<double>(p)))
        return;

    screen_.freq_label.text = format("%.1fHz", static_cast<double>(f));
    lastFrequency_ = f;

    const double fd = f;
    for (const MatchRule& rule : TuningCatalogue::tuning(state_.chosenTuning).rules) {
        const StringTarget& t = state_.targets[rule.pitch];
        if (t.contains(fd)) {
            screen_.tunedString.hidden = false;
            screen_.tunedString5.hidden = false;
            screen_.tunedStringiPad.hidden = false;
            screen_.noteDisplay.text = std::string(rule.label);
            lastTunedNoteText_ = screen_.noteDisplay.text;
            indication_.displayTunedString(rule.indication);
            screen_.LEDDisplay.image = "green64.png";
            screen_.LEDDisplay128.image = "green128.png";
            // While a string is in tune the read-out shows its exact target.
            screen_.freq_label.text = format("%.1fHz", t.target);
            lastTunedFrequencyText_ = screen_.freq_label.text;
            beep_.playSoundOnce(rule.slot >= 1 && rule.slot <= 3 ? rule.slot : 4);
            return;
        }
    }

    // Above 700 Hz the estimate is usually a harmonic: show the last in-tune result.
    if (f > 700.0f) {
        screen_.freq_label.text = lastTunedFrequencyText_;
        screen_.noteDisplay.text = lastTunedNoteText_;
    }
    const auto& reached = state_.firstTuningBools;
    if (reached[0] == 1 && reached[1] == 1 && reached[2] == 1 && reached[3] == 1) {
        runLoop_.performAfterDelay(2.0, [this] { review_.promptToReview(); });
        runLoop_.performAfterDelay(4.0, [this] { beep_.resetTuningBools(); });
    }
}

} // namespace uke
