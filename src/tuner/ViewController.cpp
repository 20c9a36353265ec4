// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tuner/ViewController.h"

#include <cstdlib>

#include "base/Format.h"

namespace uke {

ViewController::ViewController(Services services, SharedState& state, TunerScreenModel& screen, PitchSource& listener,
                               ToneGenerator& tone, RatingPrompt& rating)
    : s_(services), state_(state), screen_(screen), tunings_(s_.strings, s_.device, state, screen),
      indication_(s_.log, s_.device, state, screen, tunings_), review_(s_.settings, rating),
      beep_(s_.sounds, s_.runLoop, s_.resourcePath, state),
      tick_(s_.runLoop, listener, state, screen, indication_, beep_, review_),
      fork_(s_.output, s_.sounds, s_.settings, s_.resourcePath, state, screen, tone, review_),
      notes_(s_.strings, s_.device, s_.settings, state, screen),
      settings_(s_.settings, s_.strings, s_.log, s_.urls, state, screen, review_),
      navigator_(s_.runLoop, s_.device, s_.log, state, screen, {tunings_, indication_, notes_, settings_, review_}) {}

ViewController::~ViewController() = default;

void ViewController::viewDidLoad() {
    loadPickerViewSettings();
    if (demoModeEnabled) {
        demoMode();
        s_.log.log(format("ChosenTuning al arrancar es: %ld", static_cast<long>(state_.chosenTuning)));
        return;
    }
    s_.idleTimer.setIdleTimerDisabled(true);
    tick_.start();
    displayTunings();
    const std::string version = s_.device.systemVersion();
    if (std::strtof(version.c_str(), nullptr) < 6.0f)
        screen_.tuningForkButton.hidden = true;
    s_.log.log(format("ChosenTuning al arrancar es: %ld", static_cast<long>(state_.chosenTuning)));
}

void ViewController::viewWillAppear() {
    fork_.prepareForAppearance();
    prepareBeepSound();
    settings_.applyOnAppearance();
    localizeNotes();
    overrideDefaultLanguage();
    localizeSettings();
}

} // namespace uke
