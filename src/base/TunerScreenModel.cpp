// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/TunerScreenModel.h"

namespace uke {

TunerScreenModel::TunerScreenModel() {
    lightLamp(false);
    tunedString.hidden = true;
    tunedString5.hidden = true;
    tunedStringiPad.hidden = true;
    goToChordsLibraryButton.image = "chord_icon.png";
    micSensitivitySlider = Slider{5.0, 0.0, 10.0, false};
    setFrequencyValueStepper = Stepper{440.0, 415.0, 466.0, 1.0, false};
    calibrationFrequencyValue.text = "440";
    soundNotificationSwitch.on = true;
    stringSoundsSwitch.on = false;
    freqChartSwitch.on = true;
}

void TunerScreenModel::lightLamp(bool inTune) {
    inTune_ = inTune;
    LEDDisplay.image = inTune ? "green64.png" : "yellow64.png";
    LEDDisplay128.image = inTune ? "green128.png" : "yellow128.png";
}

ImageView& TunerScreenModel::ring(int n) {
    switch (n) {
    case 1: return ring1;
    case 2: return ring2;
    case 3: return ring3;
    default: return ring4;
    }
}

ImageView& TunerScreenModel::highlight(HighlightView view) {
    return const_cast<ImageView&>(static_cast<const TunerScreenModel&>(*this).highlight(view));
}

const ImageView& TunerScreenModel::highlight(HighlightView view) const {
    switch (view) {
    case HighlightView::TunedString: return tunedString;
    case HighlightView::TunedString5: return tunedString5;
    case HighlightView::TunedStringiPad: break;
    }
    return tunedStringiPad;
}

} // namespace uke
