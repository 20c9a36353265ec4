// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#include "sounds/ConfirmationBeep.h"

#include "base/Format.h"
#include "platform/Log.h"

namespace uke {

void ConfirmationBeep::prepareBeepSound() {
    beepSoundPlayer_ = sounds_.playerForFile(format("%s/beep-full.mp3", resourcePath_.c_str()));
}

void ConfirmationBeep::playSoundOnce(int string) {
    const auto i = static_cast<size_t>(string - 1);
    state_.firstTuningBools[i] = 1;
    if (state_.soundNotificationOn && !state_.tuningBools[i]) {
        if (beepSoundPlayer_)
            beepSoundPlayer_->play();
        state_.tuningBools[i] = 1;
        // Every beep re-arms all four strings: one string's timer may free the others early.
        runLoop_.performAfterDelay(15.0, lifetime_.guard([this] { resetTuningBools(); }));
    }
}

void ConfirmationBeep::resetTuningBools() { state_.tuningBools = {}; }

// Never called by the app; kept so the reached flags have an owner that can clear them.
void ConfirmationBeep::resetFirstTuning() { state_.firstTuningBools = {}; }

} // namespace uke
