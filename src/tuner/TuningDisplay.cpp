// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tuner/TuningDisplay.h"

#include "base/TuningCatalogue.h"

namespace uke {

void TuningDisplay::displayTunings() {
    screen_.aboutCongratsMessage.text = strings_.localized("TunerAboutCongratsMessage");
    screen_.aboutMsg2.text = strings_.localized("TunerAboutMsg2");

    const Idiom idiom = device_.idiom();
    if (idiom != Idiom::Phone && idiom != Idiom::Pad)
        return;
    displayNotes();
    if (!TuningCatalogue::contains(state_.chosenTuning))
        return;
    const Tuning& t = TuningCatalogue::tuning(state_.chosenTuning);
    screen_.currentTuningName.text = strings_.localized(std::string(t.titleKey));
    // The arrows are the only bound on navigation: the actions themselves do not clamp.
    screen_.showPreviousTuningButton.hidden = state_.chosenTuning == 1;
    screen_.showNextTuningButton.hidden = state_.chosenTuning == 11;
    screen_.goToChordsLibraryButton.image = std::string(idiom == Idiom::Pad ? t.padIcon : t.phoneIcon);
}

void TuningDisplay::displayNotes() {
    if (!TuningCatalogue::contains(state_.chosenTuning))
        return;
    const Tuning& t = TuningCatalogue::tuning(state_.chosenTuning);
    Label* labels[4] = {&screen_.firstString, &screen_.secondString, &screen_.thirdString, &screen_.fourthString};
    for (size_t i = 0; i < 4; ++i)
        labels[i]->text = std::string(pitchName(t.strings[i]));
}

} // namespace uke
