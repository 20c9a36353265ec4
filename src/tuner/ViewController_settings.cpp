// The settings and about panels.
#include <algorithm>
#include <cmath>

#include "chords/ChordsViewController.h"
#include "settings/SensitivityLimitTable.h"
#include "settings/SettingsKeys.h"
#include "tuner/ViewController.h"

namespace uke {

void ViewController::micSensitivity(float sliderValue) {
    // The step in use now comes from the raw reading, the stored one from the
    // snapped value: a release at 4.6 uses step 4 and stores 5.
    state_.micSensitivityValue = static_cast<long>(sliderValue);
    screen_.micSensitivitySlider.value = std::round(static_cast<double>(sliderValue));
    s_.settings.setInteger(keys::savedSliderValue, static_cast<long>(screen_.micSensitivitySlider.value));
    s_.settings.synchronize();
    if (static_cast<unsigned long>(state_.micSensitivityValue) <= 10) {
        const SensitivityLimits limits = SensitivityLimitTable::forStep(state_.micSensitivityValue);
        state_.bottomLimit = limits.bottomLimit;
        state_.topLimit = limits.topLimit;
    }
    s_.log.log(format("micSensitivityValue: %ld", state_.micSensitivityValue));
    s_.log.log(format("bottomLimit: %f", state_.bottomLimit));
    s_.log.log(format("topLimit: %f", state_.topLimit));
}

void ViewController::setFrequencyValue(double stepperValue) {
    // A stepper never leaves its own range, whoever asks it to.
    const Stepper& range = screen_.setFrequencyValueStepper;
    stepperValue = std::clamp(stepperValue, range.minimum, range.maximum);
    const long hz = static_cast<long>(stepperValue);
    screen_.setFrequencyValueStepper.value = stepperValue;
    screen_.calibrationFrequencyValue.text = format("%02lu", static_cast<unsigned long>(hz));
    state_.a4Calibration = hz;
    s_.settings.setInteger(keys::savedA4Calibration, hz);
    s_.settings.synchronize();
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

void ViewController::soundNotificationAction(bool on) {
    storeSwitch(s_.settings, keys::soundNotificationEnabled, state_.soundNotificationOn,
                screen_.soundNotificationSwitch, on);
    logSwitch(s_.log, on);
}

void ViewController::toggleStringSounds(bool on) {
    storeSwitch(s_.settings, keys::stringSoundsEnabled, state_.stringSoundsOn, screen_.stringSoundsSwitch, on);
    logSwitch(s_.log, on);
}

void ViewController::toggleFreqChart(bool on) {
    storeSwitch(s_.settings, keys::frequencyChartEnabled, state_.frequencyChartOn, screen_.freqChartSwitch, on);
    s_.log.log(format(on ? "Frequency chart IS enabled: %d" : "Frequency chart IS NOT enabled: %d", on ? 1 : 0));
}

void ViewController::localizeSettings() {
    screen_.micSensitivityLabel.text = s_.strings.localized("MicSensitivityTitle");
    screen_.soundNotificationLabel.text = s_.strings.localized("SoundNotificationTitle");
    screen_.stringSoundsLabel.text = s_.strings.localized("StringSoundsTitle");
    screen_.frequencyChartLabel.text = s_.strings.localized("FrequencyChartTitle");
}

void ViewController::prepareForSegue(const std::string& identifier, ChordsViewController& destination) {
    if (identifier != "showChordsView")
        return;
    const int64_t type = state_.chosenUkuleleType;
    if (type >= 1 && type <= 4)
        destination.ukuleleType = type;
    // The picker's language is deliberately not handed on.
    destination.selectedLanguage = 1;
}

void ViewController::reviewQuenby() { promptToReview(); }

void ViewController::redirectToMorvaneLabs() {
    // A host that names no address still gets the build's own.
    s_.urls.openUrl(makerUrl.empty() ? std::string(UKE_MAKER_URL) : makerUrl);
}

} // namespace uke
