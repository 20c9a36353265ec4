#include "tuner/ViewController.h"

#include <cstdlib>

#include "rating/RatingPrompt.h"
#include "settings/FactorySettings.h"
#include "settings/SettingsKeys.h"
#include "sounds/ToneGenerator.h"
#include "tuner/TuningCatalogue.h"

namespace uke {

ViewController::ViewController(Services services, SharedState& state, TunerScreenModel& screen, PitchSource& listener,
                               ToneGenerator& tone, RatingPrompt& rating)
    : s_(services), state_(state), screen_(screen), listener_(listener), tone_(tone), rating_(rating) {}

ViewController::~ViewController() = default;

void ViewController::viewDidLoad() {
    loadPickerViewSettings();
    if (demoModeEnabled) {
        demoMode();
        s_.log.log(format("ChosenTuning al arrancar es: %ld", static_cast<long>(state_.chosenTuning)));
        return;
    }
    // The audio set-up of the listener reports its own failures; the screen goes on
    // without readings when there is no microphone.
    listener_.listen();
    if (!timerScheduled_) {
        timerScheduled_ = true;
        s_.runLoop.scheduleRepeating(0.01, [this] { tickFree(); });
    }
    displayTunings();
    const std::string version = s_.device.systemVersion();
    if (std::strtof(version.c_str(), nullptr) < 6.0f)
        screen_.tuningForkButton.hidden = true;
    s_.log.log(format("ChosenTuning al arrancar es: %ld", static_cast<long>(state_.chosenTuning)));
}

void ViewController::viewWillAppear() {
    curTone = 1;
    if (!demoModeEnabled)
        setupAudio();
    curPlayState = 1;
    prepareBeepSound();

    if (s_.settings.boolForKey(keys::NewLaunchOrvel))
        ApplyPersistedSettings();
    else
        ResetToFactorySettings();

    const long calibration = s_.settings.integerForKey(keys::savedA4Calibration);
    screen_.setFrequencyValueStepper.value = static_cast<double>(calibration);
    screen_.calibrationFrequencyValue.text = format("%02lu", static_cast<unsigned long>(calibration));
    state_.targets.recompute(static_cast<double>(calibration));

    localizeNotes();
    overrideDefaultLanguage();
    localizeSettings();
}

void ViewController::ApplyPersistedSettings() {
    auto& st = s_.settings;
    const long chart = st.integerForKey(keys::frequencyChartEnabled);
    const long beep = st.integerForKey(keys::soundNotificationEnabled);
    const long strings = st.integerForKey(keys::stringSoundsEnabled);
    const long fork = st.integerForKey(keys::currentlyUsingTuningFork);
    const long calibration = st.integerForKey(keys::savedA4Calibration);

    // Only the switch is restored: the chart keeps being written until it is flipped.
    if (chart == 0 || chart == 1)
        screen_.freqChartSwitch.on = chart != 0;
    if (beep == 0 || beep == 1) {
        state_.soundNotificationOn = beep != 0;
        screen_.soundNotificationSwitch.on = beep != 0;
    }
    if (strings == 0 || strings == 1) {
        state_.stringSoundsOn = strings != 0;
        screen_.stringSoundsSwitch.on = strings != 0;
    }
    if (fork == 1)
        state_.soundNotificationOn = false;

    screen_.calibrationFrequencyValue.text = format("%02lu", static_cast<unsigned long>(calibration));
    screen_.setFrequencyValueStepper.value = static_cast<double>(calibration);
    state_.a4Calibration = calibration;

    // The thresholds keep their start values until the slider moves.
    state_.micSensitivityValue = static_cast<long>(st.floatForKey(keys::savedSliderValue));
    screen_.micSensitivitySlider.value = static_cast<double>(state_.micSensitivityValue);

    st.setInteger(keys::numberOfRuns, st.integerForKey(keys::numberOfRuns) + 1);
    st.synchronize();
}

void ViewController::ResetToFactorySettings() {
    auto& st = s_.settings;
    s_.log.log("Me abriste por primera vez, voy a borrar los defaults");
    st.wipeDomain();
    storeFactorySettings(st);
    st.synchronize();
    // The marker goes last, so that an interrupted reset runs again next time.
    st.setBool(keys::NewLaunchOrvel, true);
    st.synchronize();
}

void ViewController::promptToReview() {
    if (demoModeEnabled)
        return;
    const long runs = s_.settings.integerForKey(keys::numberOfRuns);
    if (runs >= 3) {
        rating_.tryToShowPrompt();
        if (runs >= 5) {
            rating_.tryToShowPrompt();
            if (runs >= 7) {
                rating_.tryToShowPrompt();
                if (runs >= 9)
                    rating_.tryToShowPrompt();
            }
        }
    }
}

} // namespace uke
