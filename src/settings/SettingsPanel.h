// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <string>

#include "base/SharedState.h"
#include "base/TunerScreenModel.h"
#include "platform/Log.h"
#include "platform/SettingsStore.h"
#include "platform/StringTable.h"
#include "platform/UrlOpener.h"
#include "rating/ReviewHook.h"

namespace uke {

// The settings and about panels: sensitivity slider, calibration stepper, the three
// switches and their stored values, the first-launch reset, and the about buttons.
class SettingsPanel {
public:
    SettingsPanel(SettingsStore& settings, const StringTable& strings, Log& log, UrlOpener& urls, SharedState& state,
                  TunerScreenModel& screen, ReviewHook& review)
        : settings_(settings), strings_(strings), log_(log), urls_(urls), state_(state), screen_(screen),
          review_(review) {}

    // Restores the stored settings (or seeds the store on the first launch) and the
    // calibration's targets, at every appearance of the screen.
    void applyOnAppearance();
    void micSensitivity(float sliderValue);
    void setFrequencyValue(double stepperValue);
    void soundNotificationAction(bool on);
    void toggleStringSounds(bool on);
    void toggleFreqChart(bool on);
    void localizeSettings();
    void reviewQuenby();
    void redirectToMorvaneLabs();
    // Address opened by the maker button; empty means the build's own.
    void setMakerUrl(std::string url) { makerUrl_ = std::move(url); }

private:
    void ApplyPersistedSettings();
    void ResetToFactorySettings();
    void showCalibration(long hz);

    SettingsStore& settings_;
    const StringTable& strings_;
    Log& log_;
    UrlOpener& urls_;
    SharedState& state_;
    TunerScreenModel& screen_;
    ReviewHook& review_;
    std::string makerUrl_;
};

} // namespace uke
