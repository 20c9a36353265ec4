// The tuner tick, the in-tune indication and the demonstration picture.
#include "base/LayoutClass.h"
#include "tuner/TuningCatalogue.h"
#include "tuner/ViewController.h"

namespace uke {

void ViewController::tickFree() {
    const float p = listener_.averagePower();
    const float f = listener_.frequency();
    if (!TuningCatalogue::contains(state_.chosenTuning))
        return;

    // Both gates compare as written: a level that is not a number triggers neither,
    // so such a tick leaves the screen alone.
    if (state_.bottomLimit > static_cast<double>(p) || f > 1000.0f) {
        displayNoStrings();
        return;
    }
    // Levels between the two thresholds leave the screen as the last tick left it.
    if (!(state_.topLimit < static_cast<double>(p)))
        return;

    screen_.freq_label.text = format("%.1fHz", static_cast<double>(f));
    lastFrequency = f;

    const double fd = f;
    for (const MatchRule& rule : TuningCatalogue::tuning(state_.chosenTuning).rules) {
        const StringTarget& t = state_.targets[rule.pitch];
        if (t.contains(fd)) {
            screen_.tunedString.hidden = false;
            screen_.tunedString5.hidden = false;
            screen_.tunedStringiPad.hidden = false;
            screen_.noteDisplay.text = std::string(rule.label);
            lastTunedNoteText = screen_.noteDisplay.text;
            displayTunedString(rule.indication);
            screen_.LEDDisplay.image = "green64.png";
            screen_.LEDDisplay128.image = "green128.png";
            // While a string is in tune the read-out shows its exact target.
            screen_.freq_label.text = format("%.1fHz", t.target);
            lastTunedFrequencyText = screen_.freq_label.text;
            switch (rule.slot) {
            case 1: play1stSoundOnce(); break;
            case 2: play2ndSoundOnce(); break;
            case 3: play3rdSoundOnce(); break;
            default: play4thSoundOnce(); break;
            }
            return;
        }
    }

    // Above 700 Hz the estimate is usually a harmonic: show the last in-tune result.
    if (f > 700.0f) {
        screen_.freq_label.text = lastTunedFrequencyText;
        screen_.noteDisplay.text = lastTunedNoteText;
    }
    const auto& reached = state_.firstTuningBools;
    if (reached[0] == 1 && reached[1] == 1 && reached[2] == 1 && reached[3] == 1) {
        s_.runLoop.performAfterDelay(2.0, [this] { promptToReview(); });
        s_.runLoop.performAfterDelay(4.0, [this] { resetTuningBools(); });
    }
}

void ViewController::displayTunedString(int64_t code) {
    if (code >= 1 && code <= 4) {
        static const char* rings[4] = {"ring1.png", "ring2.png", "ring3.png", "ring4.png"};
        screen_.ring(static_cast<int>(code)).image = rings[code - 1];
        state_.ringShown[static_cast<size_t>(code - 1)] = 1;
    } else if (code == 14) {
        // The fourth peg takes the first ring's picture here, as it always has.
        screen_.ring1.image = "ring1.png";
        state_.ringShown[0] = 1;
        screen_.ring4.image = "ring1.png";
        state_.ringShown[3] = 1;
    } else {
        return;
    }
    const auto highlight = highlightFor(s_.device.idiom(), s_.device.screenHeight());
    if (!highlight)
        return;
    screen_.highlight(highlight->view).image = std::string(highlightPrefix(code)) + std::string(highlight->suffix);
}

void ViewController::displayNoStrings() {
    screen_.freq_label.text.clear();
    screen_.noteDisplay.text.clear();
    screen_.tunedString.hidden = true;
    screen_.tunedString5.hidden = true;
    screen_.tunedStringiPad.hidden = true;
    screen_.LEDDisplay.image = "yellow64.png";
    screen_.LEDDisplay128.image = "yellow128.png";
}

void ViewController::removeRings() {
    state_.ringShown = {};
    for (int n = 1; n <= 4; ++n)
        screen_.ring(n).image.clear();
}

void ViewController::demoMode() {
    s_.log.log("**** DEMOMODE ACTIVATED ****");
    displayTunings();
    screen_.ring1.image = "ring1.png";
    screen_.tunedStringiPad.hidden = false;
    screen_.tunedString.hidden = false;
    screen_.tunedString5.hidden = false;
    screen_.LEDDisplay.image = "green64.png";
    screen_.LEDDisplay128.image = "green128.png";

    // Fixed texts: the picture ignores the calibration.
    struct Picture {
        const char* note;
        const char* freq;
    };
    static const Picture pictures[11] = {{"A4", "440.0Hz"}, {"A4", "440.0Hz"},  {"B4", "493.9Hz"}, {"B4", "493.9Hz"},
                                         {"E4", "329.6Hz"}, {"G#4", "415.3Hz"}, {"G4", "392.0Hz"}, {"A#4", "466.2Hz"},
                                         {"B4", "493.9Hz"}, {"G4", "392.0Hz"},  {"D3", "146.8Hz"}};
    if (TuningCatalogue::contains(state_.chosenTuning)) {
        const Picture& pic = pictures[state_.chosenTuning - 1];
        screen_.ring1.image = "ring1.png";
        screen_.noteDisplay.text = pic.note;
        screen_.freq_label.text = pic.freq;
    }
    const auto highlight = highlightFor(s_.device.idiom(), s_.device.screenHeight());
    if (!highlight)
        return;
    screen_.highlight(highlight->view).image = "1st" + std::string(highlight->suffix);
}

} // namespace uke
