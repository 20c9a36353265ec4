// Reference tone and recorded string samples.
#include "settings/SettingsKeys.h"
#include "sounds/ToneGenerator.h"
#include "tuner/TuningCatalogue.h"
#include "tuner/ViewController.h"

namespace uke {

void ViewController::setupAudio() {
    // A new stream simply replaces the previous one, as the output port promises.
    s_.output.setup([this](int16_t* out, uint32_t frames) { tone_.render(out, frames, curTone); });
}

void ViewController::playTone(int string) {
    if (!TuningCatalogue::contains(state_.chosenTuning))
        return;
    const Pitch pitch = TuningCatalogue::tuning(state_.chosenTuning).strings[static_cast<size_t>(string - 1)];
    const double hz = state_.targets[pitch].target;
    screen_.tfnoteDisplay.text = std::string(pitchName(pitch));
    screen_.tfFreqLabel.text = format("%.1fHz", hz);
    tone_.toneFrequency.store(static_cast<float>(hz), std::memory_order_relaxed);
    if (!demoModeEnabled) {
        // A tone already playing carries on at the new pitch with its phase unbroken.
        curPlayState = 0;
        s_.output.start();
    }
}

void ViewController::playA440Hz() { playTone(1); }
void ViewController::playE329_6() { playTone(2); }
void ViewController::playC261_6Hz() { playTone(3); }
void ViewController::playG392Hz() { playTone(4); }

void ViewController::stopFreqPlay() {
    if (curPlayState == 0) {
        curPlayState = 1;
        s_.output.stop();
    }
}

void ViewController::playStringSound(int string) {
    if (!state_.stringSoundsOn || !TuningCatalogue::contains(state_.chosenTuning))
        return;
    const Pitch pitch = TuningCatalogue::tuning(state_.chosenTuning).strings[static_cast<size_t>(string - 1)];
    const std::string path = s_.resourcePath + "/" + std::string(pitchFileStem(pitch)) + ".mp3";
    // A fresh player per press: pressing twice restarts the note, and releasing the
    // old player ends its sound.
    // A missing file gives no player and, as ever, no sound and no report.
    stringPlayer_ = s_.sounds.playerForFile(path);
    if (stringPlayer_)
        stringPlayer_->play();
}

void ViewController::play1stStringSound() { playStringSound(1); }
void ViewController::play2ndStringSound() { playStringSound(2); }
void ViewController::play3rdStringSound() { playStringSound(3); }
void ViewController::play4thStringSound() { playStringSound(4); }

void ViewController::disableTemporarilySoundConfirmation() {
    s_.settings.setInteger(keys::currentlyUsingTuningFork, 1);
    s_.settings.synchronize();
    state_.tuningForkFlag = true;
}

void ViewController::enableSoundConfirmation() {
    promptToReview();
    s_.settings.setInteger(keys::currentlyUsingTuningFork, 0);
    s_.settings.synchronize();
    state_.tuningForkFlag = false;
}

} // namespace uke
