#include <gtest/gtest.h>

#include "chords/ChordsViewController.h"
#include "support/TunerFixture.h"

namespace uke {
namespace {

// What the tuner screen hands to the chord library when it opens it. Which chart
// each tuning chooses is the tuning tests' business.
using ChordsSegue = test::TunerFixture;

// Charts out of range leave the destination's default, 0; the language is always
// the letter names, whatever the picker's. Other segues pass nothing.
TEST_F(ChordsSegue, HandsOverTheChartAndAlwaysLetterNames) {
    ChordScreenModel chordScreen;
    state.languageIndex = 3;
    for (int64_t chart : {1, 2, 3, 4, 0, 5, -2}) {
        state.chosenUkuleleType = chart;
        ChordsViewController c(platform.services(), state, chordScreen, *rating);
        controller->prepareForSegue("showSettings", c);
        EXPECT_EQ(c.ukuleleType + c.selectedLanguage, 0) << chart;
        controller->prepareForSegue("showChordsView", c);
        EXPECT_EQ(c.ukuleleType, chart >= 1 && chart <= 4 ? chart : 0) << chart;
        EXPECT_EQ(c.selectedLanguage, 1) << chart;
    }
}

} // namespace
} // namespace uke
