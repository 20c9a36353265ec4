// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tuner/TuningNavigator.h"

#include "base/Format.h"
#include "chords/ChordsViewController.h"

namespace uke {

void TuningNavigator::showNextTuning() {
    runLoop_.performAfterDelay(0.0, lifetime_.guard([this] { r_.indication.removeRings(); }));
    const int64_t old = state_.chosenTuning;
    state_.chosenTuning = old + 1;
    // One-sided on purpose: stepping forward from 5 keeps the baritone chart for 6 to 9.
    if (old == 4)
        state_.chosenUkuleleType = 2;
    else if (old == 9)
        state_.chosenUkuleleType = 3;
    else if (old == 10)
        state_.chosenUkuleleType = 4;
    screen_.goToChordsLibraryButton.image = "chord_icon_b.png";
    if (device_.idiom() == Idiom::Pad)
        screen_.goToChordsLibraryButton.image = "chord_icon_b_large.png";

    redrawAfterStep(false);
}

void TuningNavigator::showPreviousTuning() {
    runLoop_.performAfterDelay(0.0, lifetime_.guard([this] { r_.indication.removeRings(); }));
    state_.chosenTuning -= 1;
    const int64_t t = state_.chosenTuning;
    state_.chosenUkuleleType = t == 11 ? 4 : t == 10 ? 3 : t == 5 ? 2 : 1;
    screen_.goToChordsLibraryButton.image = "chord_icon.png";
    if (device_.idiom() == Idiom::Pad)
        screen_.goToChordsLibraryButton.image = "chord_icon_large.png";

    // Only this direction refreshes the settings captions.
    redrawAfterStep(true);
}

void TuningNavigator::redrawAfterStep(bool settingsCaptions) {
    r_.tunings.displayTunings();
    r_.notes.localizeNotes();
    r_.notes.overrideDefaultLanguage();
    if (settingsCaptions)
        r_.settings.localizeSettings();
    r_.review.promptToReview();
    if (demoModeEnabled)
        r_.indication.demoMode();
    log_.log(format("Ahora chosenTuning es: %ld", static_cast<long>(state_.chosenTuning)));
}

void TuningNavigator::prepareForSegue(const std::string& identifier, ChordsViewController& destination) {
    if (identifier != "showChordsView")
        return;
    const int64_t type = state_.chosenUkuleleType;
    if (type >= 1 && type <= 4)
        destination.ukuleleType = type;
    // The picker's language is deliberately not handed on.
    destination.selectedLanguage = 1;
}

} // namespace uke
