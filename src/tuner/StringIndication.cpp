// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tuner/StringIndication.h"

#include "base/LayoutClass.h"
#include "base/TuningCatalogue.h"

namespace uke {

void StringIndication::displayTunedString(int64_t code) {
    wrote();
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
    const auto highlight = highlightFor(device_.idiom(), device_.screenHeight());
    if (!highlight)
        return;
    screen_.highlight(highlight->view).image = std::string(highlightPrefix(code)) + std::string(highlight->suffix);
}

void StringIndication::displayNoStrings() {
    wrote();
    screen_.freq_label.text.clear();
    screen_.noteDisplay.text.clear();
    screen_.tunedString.hidden = true;
    screen_.tunedString5.hidden = true;
    screen_.tunedStringiPad.hidden = true;
    screen_.lightLamp(false);
}

void StringIndication::removeRings() {
    wrote();
    state_.ringShown = {};
    for (int n = 1; n <= 4; ++n)
        screen_.ring(n).image.clear();
}

void StringIndication::demoMode() {
    wrote();
    log_.log("**** DEMOMODE ACTIVATED ****");
    tunings_.displayTunings();
    screen_.ring1.image = "ring1.png";
    screen_.tunedStringiPad.hidden = false;
    screen_.tunedString.hidden = false;
    screen_.tunedString5.hidden = false;
    screen_.lightLamp(true);

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
    const auto highlight = highlightFor(device_.idiom(), device_.screenHeight());
    if (!highlight)
        return;
    screen_.highlight(highlight->view).image = "1st" + std::string(highlight->suffix);
}

} // namespace uke
