// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <atomic>
#include <cstdint>
#include <memory>
#include <string>

#include "base/SharedState.h"
#include "base/TunerScreenModel.h"
#include "platform/AudioOutput.h"
#include "platform/SettingsStore.h"
#include "platform/SoundPlayer.h"
#include "rating/ReviewHook.h"

namespace uke {

class ToneGenerator;

// The tuning-fork panel: the synthesised reference tone of each string, the
// recorded string samples, and the flag that mutes the beep while the panel is open.
class TuningFork {
public:
    TuningFork(AudioOutput& output, SoundPlayerFactory& sounds, SettingsStore& settings, std::string resourcePath,
               SharedState& state, TunerScreenModel& screen, ToneGenerator& tone, ReviewHook& review)
        : output_(output), sounds_(sounds), settings_(settings), resourcePath_(std::move(resourcePath)), state_(state),
          screen_(screen), tone_(tone), review_(review) {}

    // Every appearance of the screen starts from the triangle mix, stopped, on a new stream.
    void prepareForAppearance();
    void setupAudio();
    // `string` is 1 to 4.
    void playTone(int string);
    void stopFreqPlay();
    void playStringSound(int string);
    void disableTemporarilySoundConfirmation();
    void enableSoundConfirmation();

    // Second waveform of the tone: 1 triangle, 2 sawtooth, 3 square, anything else plain sine.
    int64_t curTone() const { return curTone_.load(std::memory_order_relaxed); }
    void setCurTone(int64_t wave) { curTone_.store(wave, std::memory_order_relaxed); }
    // 0 while the tone plays, 1 when stopped.
    int64_t curPlayState() const { return curPlayState_; }
    // Declared with the tone's properties but used by nothing: the mix lives in the generator.
    int64_t curToneType() const { return curToneType_; }
    float harmPct() const { return harmPct_; }
    float outGain() const { return outGain_; }

private:
    AudioOutput& output_;
    SoundPlayerFactory& sounds_;
    SettingsStore& settings_;
    std::string resourcePath_;
    SharedState& state_;
    TunerScreenModel& screen_;
    ToneGenerator& tone_;
    ReviewHook& review_;
    std::shared_ptr<SoundPlayer> stringPlayer_;
    // Read by the render callback on the audio thread.
    std::atomic<int64_t> curTone_{1};
    int64_t curPlayState_ = 1;
    int64_t curToneType_ = 0;
    float harmPct_ = 0.0f;
    float outGain_ = 0.0f;
};

} // namespace uke
