// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <memory>
#include <string>

#include "base/SharedState.h"
#include "platform/RunLoop.h"
#include "platform/SoundPlayer.h"

namespace uke {

// The once-per-string confirmation beep and the per-string flags behind it.
class ConfirmationBeep {
public:
    ConfirmationBeep(SoundPlayerFactory& sounds, RunLoop& runLoop, std::string resourcePath, SharedState& state)
        : sounds_(sounds), runLoop_(runLoop), resourcePath_(std::move(resourcePath)), state_(state) {}

    void prepareBeepSound();
    // `string` is 1 to 4.
    void playSoundOnce(int string);
    void resetTuningBools();
    void resetFirstTuning();

private:
    SoundPlayerFactory& sounds_;
    RunLoop& runLoop_;
    std::string resourcePath_;
    SharedState& state_;
    std::shared_ptr<SoundPlayer> beepSoundPlayer_;
    Lifetime lifetime_; // its delayed messages stop reaching this object when it goes
};

} // namespace uke
