#pragma once
#include <atomic>
#include <cstdint>
#include <memory>
#include <string>

#include "base/SharedState.h"
#include "audio/PitchSource.h"
#include "platform/Services.h"
#include "tuner/TunerScreenModel.h"

namespace uke {

class ChordsViewController;
class RatingPrompt;
class ToneGenerator;

// The tuner screen: tunings and their targets, the tick, the in-tune indication,
// reference sounds, the settings and about panels and the note names. Its
// operations keep the names the screen logic has always used; the bodies are
// spread over ViewController_*.cpp by concern.
class ViewController {
public:
    ViewController(Services services, SharedState& state, TunerScreenModel& screen, PitchSource& listener,
                   ToneGenerator& tone, RatingPrompt& rating);
    ~ViewController();

    // Screen life cycle.
    void viewDidLoad();
    void viewWillAppear();

    // Tunings and targets.
    void displayTunings();
    void displayNotes();
    void showNextTuning();
    void showPreviousTuning();

    // Tick and indication.
    void tickFree();
    void displayTunedString(int64_t code);
    void displayNoStrings();
    void removeRings();
    void resetTuningBools();
    void resetFirstTuning();
    void demoMode();

    // Reference tone.
    void setupAudio();
    void playA440Hz();
    void playE329_6();
    void playC261_6Hz();
    void playG392Hz();
    void stopFreqPlay();

    // String samples and confirmation beep.
    void play1stStringSound();
    void play2ndStringSound();
    void play3rdStringSound();
    void play4thStringSound();
    void prepareBeepSound();
    void play1stSoundOnce();
    void play2ndSoundOnce();
    void play3rdSoundOnce();
    void play4thSoundOnce();
    void disableTemporarilySoundConfirmation();
    void enableSoundConfirmation();

    // Settings and about panels.
    void micSensitivity(float sliderValue);
    void setFrequencyValue(double stepperValue);
    void soundNotificationAction(bool on);
    void toggleStringSounds(bool on);
    void toggleFreqChart(bool on);
    void localizeSettings();
    void prepareForSegue(const std::string& identifier, ChordsViewController& destination);
    void reviewQuenby();
    void redirectToMorvaneLabs();

    // Language picker and note names.
    void loadPickerViewSettings();
    long numberOfComponentsInPickerView() const { return 1; }
    long numberOfRowsInComponent() const;
    std::string titleForRow(long row) const;
    void didSelectRow(long row);
    void localizeNotes();
    void overrideDefaultLanguage();

    // Rating hook.
    void promptToReview();

    // Tone properties.
    std::atomic<int64_t> curTone{1};
    int64_t curPlayState = 1;
    int64_t curToneType = 0;
    float harmPct = 0.0f;
    float outGain = 0.0f;

    // Left by the tick for the next one.
    double lastFrequency = 0.0;
    std::string lastTunedFrequencyText;
    std::string lastTunedNoteText;

    // Address opened by the about panel's maker button.
    std::string makerUrl;

    TunerScreenModel& screen() { return screen_; }
    SharedState& state() { return state_; }

private:
    void ApplyPersistedSettings();
    void ResetToFactorySettings();
    void playTone(int string);
    void playStringSound(int string);
    void playSoundOnce(int string);

    Services s_;
    SharedState& state_;
    TunerScreenModel& screen_;
    PitchSource& listener_;
    ToneGenerator& tone_;
    RatingPrompt& rating_;
    std::shared_ptr<SoundPlayer> stringPlayer_;
    std::shared_ptr<SoundPlayer> beepSoundPlayer_;
    bool timerScheduled_ = false;
};

} // namespace uke
