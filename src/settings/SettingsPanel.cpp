// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/SettingsPanel.h"

#include <algorithm>
#include <cmath>

#include "base/Format.h"
#include "base/SettingsKeys.h"
#include "settings/FactorySettings.h"
#include "settings/SensitivityLimitTable.h"

namespace uke {

void SettingsPanel::applyOnAppearance() {
    if (settings_.boolForKey(keys::NewLaunchOrvel))
        ApplyPersistedSettings();
    else
        ResetToFactorySettings();

    const long calibration = settings_.integerForKey(keys::savedA4Calibration);
    showCalibration(calibration);
    state_.targets.recompute(static_cast<double>(calibration));
}

namespace {
// Like the real controls, a slider or stepper holds only values inside its range,
// whatever the store says; the stored value itself is used as it stands.
template <class Control> void setInRange(Control& control, double value) {
    control.value = std::clamp(value, control.minimum, control.maximum);
}
} // namespace

void SettingsPanel::showCalibration(long hz) {
    setInRange(screen_.setFrequencyValueStepper, static_cast<double>(hz));
    screen_.calibrationFrequencyValue.text = format("%02lu", static_cast<unsigned long>(hz));
}

void SettingsPanel::ApplyPersistedSettings() {
    auto& st = settings_;
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

    showCalibration(calibration);
    state_.a4Calibration = calibration;

    // The thresholds keep their start values until the slider moves.
    state_.micSensitivityValue = wholeNumber(st.floatForKey(keys::savedSliderValue));
    setInRange(screen_.micSensitivitySlider, static_cast<double>(state_.micSensitivityValue));

    st.setInteger(keys::numberOfRuns, countedOnce(st.integerForKey(keys::numberOfRuns)));
    st.synchronize();
}

void SettingsPanel::ResetToFactorySettings() {
    auto& st = settings_;
    log_.log("Me abriste por primera vez, voy a borrar los defaults");
    st.wipeDomain();
    storeFactorySettings(st);
    st.synchronize();
    // The marker goes last, so that an interrupted reset runs again next time.
    st.setBool(keys::NewLaunchOrvel, true);
    st.synchronize();
}

void SettingsPanel::micSensitivity(float sliderValue) {
    // The step in use now comes from the raw reading, the stored one from the
    // snapped value: a release at 4.6 uses step 4 and stores 5.
    state_.micSensitivityValue = wholeNumber(sliderValue);
    setInRange(screen_.micSensitivitySlider, std::round(static_cast<double>(sliderValue)));
    settings_.setInteger(keys::savedSliderValue, static_cast<long>(screen_.micSensitivitySlider.value));
    settings_.synchronize();
    if (static_cast<unsigned long>(state_.micSensitivityValue) <= 10) {
        const SensitivityLimits limits = SensitivityLimitTable::forStep(state_.micSensitivityValue);
        state_.bottomLimit = limits.bottomLimit;
        state_.topLimit = limits.topLimit;
    }
    log_.log(format("micSensitivityValue: %ld", state_.micSensitivityValue));
    log_.log(format("bottomLimit: %f", state_.bottomLimit));
    log_.log(format("topLimit: %f", state_.topLimit));
}

void SettingsPanel::setFrequencyValue(double stepperValue) {
    // A stepper never leaves its own range, whoever asks it to.
    const Stepper& range = screen_.setFrequencyValueStepper;
    stepperValue = std::clamp(stepperValue, range.minimum, range.maximum);
    const long hz = static_cast<long>(stepperValue);
    screen_.setFrequencyValueStepper.value = stepperValue;
    screen_.calibrationFrequencyValue.text = format("%02lu", static_cast<unsigned long>(hz));
    state_.a4Calibration = hz;
    settings_.setInteger(keys::savedA4Calibration, hz);
    settings_.synchronize();
    // The targets follow only at the next appearance of the screen.
}

namespace {
// A switch's state goes to the shared flag, the view and the store at once.
void storeSwitch(SettingsStore& settings, const std::string& key, bool& flag, Switch& view, bool on) {
    flag = on;
    view.on = on;
    settings.setBool(key, on);
    settings.synchronize();
}

void logSwitch(Log& log, bool on) {
    log.log(format(on ? "Has encendido el Switch, valor de la variable = %d"
                      : "Has apagado el Switch, valor de la variable = %d",
                   on ? 1 : 0));
}
} // namespace

void SettingsPanel::soundNotificationAction(bool on) {
    storeSwitch(settings_, keys::soundNotificationEnabled, state_.soundNotificationOn, screen_.soundNotificationSwitch,
                on);
    logSwitch(log_, on);
}

void SettingsPanel::toggleStringSounds(bool on) {
    storeSwitch(settings_, keys::stringSoundsEnabled, state_.stringSoundsOn, screen_.stringSoundsSwitch, on);
    logSwitch(log_, on);
}

void SettingsPanel::toggleFreqChart(bool on) {
    storeSwitch(settings_, keys::frequencyChartEnabled, state_.frequencyChartOn, screen_.freqChartSwitch, on);
    log_.log(format(on ? "Frequency chart IS enabled: %d" : "Frequency chart IS NOT enabled: %d", on ? 1 : 0));
}

void SettingsPanel::localizeSettings() {
    screen_.micSensitivityLabel.text = strings_.localized("MicSensitivityTitle");
    screen_.soundNotificationLabel.text = strings_.localized("SoundNotificationTitle");
    screen_.stringSoundsLabel.text = strings_.localized("StringSoundsTitle");
    screen_.frequencyChartLabel.text = strings_.localized("FrequencyChartTitle");
}

void SettingsPanel::reviewQuenby() { review_.promptToReview(); }

void SettingsPanel::redirectToMorvaneLabs() {
    // A host that names no address still gets the build's own.
    urls_.openUrl(makerUrl_.empty() ? std::string(UKE_MAKER_URL) : makerUrl_);
}

} // namespace uke
