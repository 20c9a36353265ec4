#include <gtest/gtest.h>

#include <memory>
#include <set>

#include "chords/ChordsViewController.h"
#include "support/TunerFixture.h"

namespace uke {
namespace {

// What the tuner screen hands to the chord library when it opens it.
class ChordsSegue : public test::TunerFixture {
protected:
    std::unique_ptr<ChordsViewController> destination() {
        return std::make_unique<ChordsViewController>(platform.services(), state, chordScreen, *rating);
    }
    ChordScreenModel chordScreen;
};

// Charts out of range leave the destination's default, 0; the language is always
// the letter names, whatever the picker's.
TEST_F(ChordsSegue, HandsOverTheChartAndAlwaysLetterNames) {
    for (int64_t chart : {1, 2, 3, 4, 0, 5, -2}) {
        state.chosenUkuleleType = chart;
        state.languageIndex = 3;
        const auto c = destination();
        controller->prepareForSegue("showChordsView", *c);
        EXPECT_EQ(c->ukuleleType, chart >= 1 && chart <= 4 ? chart : 0) << chart;
        EXPECT_EQ(c->selectedLanguage, 1) << chart;
    }
}

TEST_F(ChordsSegue, OtherSeguesPassNothing) {
    state.chosenUkuleleType = 2;
    const auto c = destination();
    controller->prepareForSegue("showSettings", *c);
    controller->prepareForSegue("", *c);
    EXPECT_EQ(c->ukuleleType, 0);
    EXPECT_EQ(c->selectedLanguage, 0);
}

TEST_F(ChordsSegue, TheChartFollowsTheTunerAcrossTheTunings) {
    launch();
    // Stepping through every tuning hands over only charts that exist, and the
    // baritone and open tunings reach their own charts on the way.
    std::set<int64_t> seen;
    for (int step = 0; step < 11; ++step) {
        const auto c = destination();
        controller->prepareForSegue("showChordsView", *c);
        EXPECT_GE(c->ukuleleType, 1);
        EXPECT_LE(c->ukuleleType, 4);
        seen.insert(c->ukuleleType);
        controller->showNextTuning();
    }
    EXPECT_EQ(seen, (std::set<int64_t>{1, 2, 3, 4}));
}

} // namespace
} // namespace uke
