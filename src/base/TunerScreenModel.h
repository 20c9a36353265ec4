// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "base/LayoutClass.h"
#include "base/Outlets.h"

namespace uke {

// Every outlet of the tuner screen, with the names the screen logic uses.
// X(kind, name) lists them once for the struct, the view bridge and `uke screen`.
#define UKE_TUNER_OUTLETS(X)                                                                                           \
    X(Label, freq_label)                                                                                               \
    X(Label, noteDisplay)                                                                                              \
    X(ImageView, LEDDisplay)                                                                                           \
    X(ImageView, LEDDisplay128)                                                                                        \
    X(ImageView, tunedString)                                                                                          \
    X(ImageView, tunedString5)                                                                                         \
    X(ImageView, tunedStringiPad)                                                                                      \
    X(ImageView, ring1)                                                                                                \
    X(ImageView, ring2)                                                                                                \
    X(ImageView, ring3)                                                                                                \
    X(ImageView, ring4)                                                                                                \
    X(Label, currentTuningName)                                                                                        \
    X(Button, showPreviousTuningButton)                                                                                \
    X(Button, showNextTuningButton)                                                                                    \
    X(Button, goToChordsLibraryButton)                                                                                 \
    X(Button, tuningForkButton)                                                                                        \
    X(Label, firstString)                                                                                              \
    X(Label, secondString)                                                                                             \
    X(Label, thirdString)                                                                                              \
    X(Label, fourthString)                                                                                             \
    X(Label, firstStringNoteAndFreq)                                                                                   \
    X(Label, secondStringNoteAndFreq)                                                                                  \
    X(Label, thirdStringNoteAndFreq)                                                                                   \
    X(Label, fourthStringNoteAndFreq)                                                                                  \
    X(Button, a4TFButton)                                                                                              \
    X(Button, e4TFButton)                                                                                              \
    X(Button, c4TFButton)                                                                                              \
    X(Button, g4TFButton)                                                                                              \
    X(Label, tfnoteDisplay)                                                                                            \
    X(Label, tfFreqLabel)                                                                                              \
    X(Label, aboutCongratsMessage)                                                                                     \
    X(Label, aboutMsg2)                                                                                                \
    X(Slider, micSensitivitySlider)                                                                                    \
    X(Stepper, setFrequencyValueStepper)                                                                               \
    X(Label, calibrationFrequencyValue)                                                                                \
    X(Label, calibrationLabel)                                                                                         \
    X(Label, hZLabel)                                                                                                  \
    X(Switch, soundNotificationSwitch)                                                                                 \
    X(Switch, stringSoundsSwitch)                                                                                      \
    X(Switch, freqChartSwitch)                                                                                         \
    X(Label, micSensitivityLabel)                                                                                      \
    X(Label, soundNotificationLabel)                                                                                   \
    X(Label, stringSoundsLabel)                                                                                        \
    X(Label, frequencyChartLabel)                                                                                      \
    X(Picker, establecerIdioma)

struct TunerScreenModel {
#define UKE_DECLARE_OUTLET(kind, name) kind name;
    UKE_TUNER_OUTLETS(UKE_DECLARE_OUTLET)
#undef UKE_DECLARE_OUTLET

    // The screen as its layout first shows it, before any code has run.
    TunerScreenModel();

    // Calls visit(name, outlet) for every outlet, in declaration order.
    template <class Visitor> void forEachOutlet(Visitor&& visit) {
#define UKE_VISIT_OUTLET(kind, name) visit(#name, name);
        UKE_TUNER_OUTLETS(UKE_VISIT_OUTLET)
#undef UKE_VISIT_OUTLET
    }
    template <class Visitor> void forEachOutlet(Visitor&& visit) const {
#define UKE_VISIT_OUTLET(kind, name) visit(#name, name);
        UKE_TUNER_OUTLETS(UKE_VISIT_OUTLET)
#undef UKE_VISIT_OUTLET
    }

    // The read-out: what the tick writes, a hundred times a second. Only the tick
    // and StringIndication write these outlets, and they raise readoutChanged when
    // they do, so a view can take just these outlets, and only when they moved.
    // Every other outlet changes on a rare event (an action, a delayed message),
    // after which a view compares them all.
    template <class Visitor> void forEachReadoutOutlet(Visitor&& visit) const {
        visit("freq_label", freq_label);
        visit("noteDisplay", noteDisplay);
        visit("LEDDisplay", LEDDisplay);
        visit("LEDDisplay128", LEDDisplay128);
        visit("tunedString", tunedString);
        visit("tunedString5", tunedString5);
        visit("tunedStringiPad", tunedStringiPad);
        visit("ring1", ring1);
        visit("ring2", ring2);
        visit("ring3", ring3);
        visit("ring4", ring4);
    }
    bool readoutChanged = false;

    // The lamp in both sizes: green for a reading in tune, else yellow. Whether it
    // is green is kept as a flag, so the views' "in tune" never reads a picture's name.
    void lightLamp(bool inTune);
    bool inTune() const { return inTune_; }

    // The peg ring of string n (1..4).
    ImageView& ring(int n);
    // The string-highlight view that a layout shows.
    ImageView& highlight(HighlightView view);
    const ImageView& highlight(HighlightView view) const;

private:
    bool inTune_ = false;
};

} // namespace uke
