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

    // Whether the lamp shows the last reading in tune (the tick lights it green).
    bool inTune() const;

    // The peg ring of string n (1..4).
    ImageView& ring(int n);
    // The string-highlight view that a layout shows.
    ImageView& highlight(HighlightView view);
    const ImageView& highlight(HighlightView view) const;
};

} // namespace uke
