// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <cstdint>
#include <string>

#include "audio/PitchSource.h"
#include "base/SharedState.h"
#include "base/TunerScreenModel.h"
#include "platform/Services.h"
#include "rating/ReviewHook.h"
#include "settings/NoteNamePicker.h"
#include "settings/SettingsPanel.h"
#include "sounds/ConfirmationBeep.h"
#include "sounds/TuningFork.h"
#include "tuner/StringIndication.h"
#include "tuner/TunerTick.h"
#include "tuner/TuningDisplay.h"
#include "tuner/TuningNavigator.h"

namespace uke {

class ChordsViewController;
class RatingPrompt;
class ToneGenerator;

// The tuner screen. Each concern is an object of its own that keeps its state; the
// controller wires them together, runs the screen's life cycle, and keeps every
// operation under the name the screen logic has always used, forwarding to the
// object that owns it.
class ViewController {
public:
    ViewController(Services services, SharedState& state, TunerScreenModel& screen, PitchSource& listener,
                   ToneGenerator& tone, RatingPrompt& rating);
    ~ViewController();

    // Screen life cycle.
    void viewDidLoad();
    void viewWillAppear();

    // Tunings and targets.
    void displayTunings() { tunings_.displayTunings(); }
    void displayNotes() { tunings_.displayNotes(); }
    void showNextTuning() { navigator_.showNextTuning(); }
    void showPreviousTuning() { navigator_.showPreviousTuning(); }

    // Tick and indication.
    void tickFree() { tick_.tickFree(); }
    void displayTunedString(int64_t code) { indication_.displayTunedString(code); }
    void displayNoStrings() { indication_.displayNoStrings(); }
    void removeRings() { indication_.removeRings(); }
    void resetTuningBools() { beep_.resetTuningBools(); }
    void resetFirstTuning() { beep_.resetFirstTuning(); }
    void demoMode() { indication_.demoMode(); }

    // Reference tone.
    void setupAudio() { fork_.setupAudio(); }
    void playA440Hz() { fork_.playTone(1); }
    void playE329_6() { fork_.playTone(2); }
    void playC261_6Hz() { fork_.playTone(3); }
    void playG392Hz() { fork_.playTone(4); }
    void stopFreqPlay() { fork_.stopFreqPlay(); }
    int64_t curTone() const { return fork_.curTone(); }
    void setCurTone(int64_t wave) { fork_.setCurTone(wave); }
    int64_t curPlayState() const { return fork_.curPlayState(); }

    // String samples and confirmation beep.
    void play1stStringSound() { fork_.playStringSound(1); }
    void play2ndStringSound() { fork_.playStringSound(2); }
    void play3rdStringSound() { fork_.playStringSound(3); }
    void play4thStringSound() { fork_.playStringSound(4); }
    void prepareBeepSound() { beep_.prepareBeepSound(); }
    void play1stSoundOnce() { beep_.playSoundOnce(1); }
    void play2ndSoundOnce() { beep_.playSoundOnce(2); }
    void play3rdSoundOnce() { beep_.playSoundOnce(3); }
    void play4thSoundOnce() { beep_.playSoundOnce(4); }
    void disableTemporarilySoundConfirmation() { fork_.disableTemporarilySoundConfirmation(); }
    void enableSoundConfirmation() { fork_.enableSoundConfirmation(); }

    // Settings and about panels.
    void micSensitivity(float sliderValue) { settings_.micSensitivity(sliderValue); }
    void setFrequencyValue(double stepperValue) { settings_.setFrequencyValue(stepperValue); }
    void soundNotificationAction(bool on) { settings_.soundNotificationAction(on); }
    void toggleStringSounds(bool on) { settings_.toggleStringSounds(on); }
    void toggleFreqChart(bool on) { settings_.toggleFreqChart(on); }
    void localizeSettings() { settings_.localizeSettings(); }
    void prepareForSegue(const std::string& identifier, ChordsViewController& destination) {
        navigator_.prepareForSegue(identifier, destination);
    }
    void reviewQuenby() { settings_.reviewQuenby(); }
    void redirectToMorvaneLabs() { settings_.redirectToMorvaneLabs(); }
    void setMakerUrl(std::string url) { settings_.setMakerUrl(std::move(url)); }

    // Language picker and note names.
    void loadPickerViewSettings() { notes_.loadPickerViewSettings(); }
    long numberOfComponentsInPickerView() const { return 1; }
    long numberOfRowsInComponent() const { return notes_.numberOfRowsInComponent(); }
    std::string titleForRow(long row) const { return notes_.titleForRow(row); }
    void didSelectRow(long row) { notes_.didSelectRow(row); }
    void localizeNotes() { notes_.localizeNotes(); }
    void overrideDefaultLanguage() { notes_.overrideDefaultLanguage(); }

    // Rating hook.
    void promptToReview() { review_.promptToReview(); }

    TunerScreenModel& screen() { return screen_; }
    SharedState& state() { return state_; }

private:
    Services s_;
    SharedState& state_;
    TunerScreenModel& screen_;
    // In dependency order: each object is built after the ones it calls.
    TuningDisplay tunings_;
    StringIndication indication_;
    ReviewHook review_;
    ConfirmationBeep beep_;
    TunerTick tick_;
    TuningFork fork_;
    NoteNamePicker notes_;
    SettingsPanel settings_;
    TuningNavigator navigator_;
};

} // namespace uke
