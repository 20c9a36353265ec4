// The once-per-string confirmation beep and the flags behind it.
#include "tuner/ViewController.h"

namespace uke {

void ViewController::prepareBeepSound() {
    beepSoundPlayer_ = s_.sounds.playerForFile(format("%s/beep-full.mp3", s_.resourcePath.c_str()));
}

void ViewController::playSoundOnce(int string) {
    const auto i = static_cast<size_t>(string - 1);
    state_.firstTuningBools[i] = 1;
    if (state_.soundNotificationOn && !state_.tuningBools[i]) {
        if (beepSoundPlayer_)
            beepSoundPlayer_->play();
        state_.tuningBools[i] = 1;
        // Every beep re-arms all four strings: one string's timer may free the others early.
        s_.runLoop.performAfterDelay(15.0, [this] { resetTuningBools(); });
    }
}

void ViewController::play1stSoundOnce() { playSoundOnce(1); }
void ViewController::play2ndSoundOnce() { playSoundOnce(2); }
void ViewController::play3rdSoundOnce() { playSoundOnce(3); }
void ViewController::play4thSoundOnce() { playSoundOnce(4); }

void ViewController::resetTuningBools() { state_.tuningBools = {}; }

// Never called by the app; kept so the reached flags have an owner that can clear them.
void ViewController::resetFirstTuning() { state_.firstTuningBools = {}; }

} // namespace uke
