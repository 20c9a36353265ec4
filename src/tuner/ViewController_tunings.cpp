// Tuning selection and its display.
#include "tuner/TuningCatalogue.h"
#include "tuner/ViewController.h"

namespace uke {

void ViewController::displayTunings() {
    screen_.aboutCongratsMessage.text = s_.strings.localized("TunerAboutCongratsMessage");
    screen_.aboutMsg2.text = s_.strings.localized("TunerAboutMsg2");

    const Idiom idiom = s_.device.idiom();
    if (idiom != Idiom::Phone && idiom != Idiom::Pad)
        return;
    displayNotes();
    if (!TuningCatalogue::contains(state_.chosenTuning))
        return;
    const Tuning& t = TuningCatalogue::tuning(state_.chosenTuning);
    screen_.currentTuningName.text = s_.strings.localized(std::string(t.titleKey));
    // The arrows are the only bound on navigation: the actions themselves do not clamp.
    screen_.showPreviousTuningButton.hidden = state_.chosenTuning == 1;
    screen_.showNextTuningButton.hidden = state_.chosenTuning == 11;
    screen_.goToChordsLibraryButton.image = std::string(idiom == Idiom::Pad ? t.padIcon : t.phoneIcon);
}

void ViewController::displayNotes() {
    if (!TuningCatalogue::contains(state_.chosenTuning))
        return;
    const Tuning& t = TuningCatalogue::tuning(state_.chosenTuning);
    Label* labels[4] = {&screen_.firstString, &screen_.secondString, &screen_.thirdString, &screen_.fourthString};
    for (size_t i = 0; i < 4; ++i)
        labels[i]->text = std::string(pitchName(t.strings[i]));
}

void ViewController::showNextTuning() {
    s_.runLoop.performAfterDelay(0.0, [this] { removeRings(); });
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
    if (s_.device.idiom() == Idiom::Pad)
        screen_.goToChordsLibraryButton.image = "chord_icon_b_large.png";

    displayTunings();
    localizeNotes();
    overrideDefaultLanguage();
    promptToReview();
    if (demoModeEnabled)
        demoMode();
    s_.log.log(format("Ahora chosenTuning es: %ld", static_cast<long>(state_.chosenTuning)));
}

void ViewController::showPreviousTuning() {
    s_.runLoop.performAfterDelay(0.0, [this] { removeRings(); });
    state_.chosenTuning -= 1;
    const int64_t t = state_.chosenTuning;
    state_.chosenUkuleleType = t == 11 ? 4 : t == 10 ? 3 : t == 5 ? 2 : 1;
    screen_.goToChordsLibraryButton.image = "chord_icon.png";
    if (s_.device.idiom() == Idiom::Pad)
        screen_.goToChordsLibraryButton.image = "chord_icon_large.png";

    displayTunings();
    localizeNotes();
    overrideDefaultLanguage();
    // Only this direction refreshes the settings captions.
    localizeSettings();
    promptToReview();
    if (demoModeEnabled)
        demoMode();
    s_.log.log(format("Ahora chosenTuning es: %ld", static_cast<long>(state_.chosenTuning)));
}

} // namespace uke
