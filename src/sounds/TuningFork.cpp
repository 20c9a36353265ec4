// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#include "sounds/TuningFork.h"

#include "base/Format.h"
#include "base/SettingsKeys.h"
#include "base/TuningCatalogue.h"
#include "platform/Log.h"
#include "sounds/ToneGenerator.h"

namespace uke {

void TuningFork::prepareForAppearance() {
    curTone_ = 1;
    if (!demoModeEnabled)
        setupAudio();
    curPlayState_ = 1;
}

void TuningFork::setupAudio() {
    // Deliberately unlike a bare replacement: the port stops the earlier stream
    // before it makes the new one. Two live streams would both pull this render
    // step, advancing one shared phase twice as fast and garbling the tone.
    output_.setup([this](int16_t* out, uint32_t frames) { tone_.render(out, frames, curTone_); });
}

void TuningFork::playTone(int string) {
    if (!TuningCatalogue::contains(state_.chosenTuning))
        return;
    const Pitch pitch = TuningCatalogue::tuning(state_.chosenTuning).strings[static_cast<size_t>(string - 1)];
    const double hz = state_.targets[pitch].target;
    screen_.tfnoteDisplay.text = std::string(pitchName(pitch));
    screen_.tfFreqLabel.text = format("%.1fHz", hz);
    tone_.toneFrequency.store(static_cast<float>(hz), std::memory_order_relaxed);
    if (!demoModeEnabled) {
        // A tone already playing carries on at the new pitch with its phase unbroken.
        curPlayState_ = 0;
        output_.start();
    }
}

void TuningFork::stopFreqPlay() {
    if (curPlayState_ == 0) {
        curPlayState_ = 1;
        output_.stop();
    }
}

void TuningFork::playStringSound(int string) {
    if (!state_.stringSoundsOn || !TuningCatalogue::contains(state_.chosenTuning))
        return;
    const Pitch pitch = TuningCatalogue::tuning(state_.chosenTuning).strings[static_cast<size_t>(string - 1)];
    const std::string path = resourcePath_ + "/" + std::string(pitchFileStem(pitch)) + ".mp3";
    // A fresh player per press: pressing twice restarts the note, and releasing the
    // old player ends its sound.
    // A missing file gives no player and, as ever, no sound and no report.
    stringPlayer_ = sounds_.playerForFile(path);
    if (stringPlayer_)
        stringPlayer_->play();
}

void TuningFork::disableTemporarilySoundConfirmation() {
    settings_.setInteger(keys::currentlyUsingTuningFork, 1);
    settings_.synchronize();
    state_.tuningForkFlag = true;
}

void TuningFork::enableSoundConfirmation() {
    review_.promptToReview();
    settings_.setInteger(keys::currentlyUsingTuningFork, 0);
    settings_.synchronize();
    state_.tuningForkFlag = false;
}

} // namespace uke
