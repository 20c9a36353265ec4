#include "support/TunerFixture.h"
#include "base/StringTargetTable.h"
#include "tuner/TuningCatalogue.h"

namespace uke {
namespace {

using test::TunerFixture;

TEST(StringTargets, ExactRatiosAtTwoCalibrations) {
    StringTargetTable t;
    EXPECT_EQ(t[Pitch::A4].target, 0.0) << "targets stay zero until the first recompute";
    t.recompute(440.0);
    EXPECT_EQ(t[Pitch::A4].target, 440.0);
    EXPECT_EQ(t[Pitch::A3].target, 440.0 * 0.5000000000016722);
    EXPECT_NE(t[Pitch::A3].target, 220.0) << "the literal is not exactly one half";
    EXPECT_EQ(t[Pitch::Ds4].target, 440.0 * 0.70710678118773);
    EXPECT_EQ(t[Pitch::As4].target, 440.0 * 1.059463094359);
    for (size_t i = 0; i < kPitchCount; ++i)
        EXPECT_EQ(t[static_cast<Pitch>(i)].basis, t[static_cast<Pitch>(i)].target);
    EXPECT_NEAR(t[Pitch::A4].target - t[Pitch::A4].basis / 360.0, 438.7778, 1e-4);
    EXPECT_NEAR(t[Pitch::D3].target - t[Pitch::D3].basis / 360.0, 146.4245, 1e-4);
    EXPECT_NEAR(t[Pitch::D3].target + t[Pitch::D3].basis / 360.0, 147.2403, 1e-4);

    t.recompute(442.0);
    EXPECT_EQ(t[Pitch::E4].target, 442.0 * 0.7491535384393847);
    EXPECT_NEAR(t[Pitch::Cs4].target, 277.1826 * 442.0 / 440.0, 1e-3);
}

TEST(TuningCatalogue, DeliberateIrregularities) {
    EXPECT_EQ(TuningCatalogue::tuning(2).rules[3].slot, 3) << "low G confirms through slot 3";
    EXPECT_EQ(TuningCatalogue::tuning(2).rules[3].indication, 4);
    EXPECT_EQ(TuningCatalogue::tuning(8).rules[3].label, "GS4");
    EXPECT_EQ(pitchName(TuningCatalogue::tuning(8).strings[3]), "G#4");
    for (int n : {10, 11}) {
        EXPECT_EQ(TuningCatalogue::tuning(n).rules.size(), 3u);
        EXPECT_EQ(TuningCatalogue::tuning(n).rules[0].indication, 14);
        EXPECT_EQ(TuningCatalogue::tuning(n).rules[0].slot, 1);
    }
    const auto& t3 = TuningCatalogue::tuning(3);
    const auto& t9 = TuningCatalogue::tuning(9);
    EXPECT_EQ(t3.strings, t9.strings);
    EXPECT_NE(t3.titleKey, t9.titleKey);
    EXPECT_FALSE(TuningCatalogue::contains(0));
    EXPECT_FALSE(TuningCatalogue::contains(12));
}

class Navigation : public TunerFixture {};

TEST_F(Navigation, ForwardWalksToElevenAndHidesTheNextArrow) {
    launch();
    EXPECT_TRUE(screen.showPreviousTuningButton.hidden);
    EXPECT_FALSE(screen.showNextTuningButton.hidden);
    for (int i = 0; i < 10; ++i)
        controller->showNextTuning();
    EXPECT_EQ(state.chosenTuning, 11);
    EXPECT_TRUE(screen.showNextTuningButton.hidden);
    EXPECT_FALSE(screen.showPreviousTuningButton.hidden);
    EXPECT_EQ(state.chosenUkuleleType, 4);
    EXPECT_EQ(screen.goToChordsLibraryButton.image, "chord_icon_slb.png");
    EXPECT_TRUE(platform.log.contains("Ahora chosenTuning es: 11"));

    controller->showPreviousTuning();
    EXPECT_EQ(state.chosenTuning, 10);
    EXPECT_EQ(state.chosenUkuleleType, 3);
    EXPECT_EQ(screen.goToChordsLibraryButton.image, "chord_sl_icon.png");
}

TEST_F(Navigation, ChartFamilyRulesAreOneSidedForward) {
    launch();
    const std::vector<int64_t> expectedForward = {1, 1, 1, 2, 2, 2, 2, 2, 3, 4};  // types of tunings 2..11
    for (size_t i = 0; i < expectedForward.size(); ++i) {
        controller->showNextTuning();
        EXPECT_EQ(state.chosenUkuleleType, expectedForward[i]) << "tuning " << state.chosenTuning;
    }
    // Backward is exact: 7 -> 6 gives the standard chart although 6 was reached as baritone.
    state.chosenTuning = 7;
    state.chosenUkuleleType = 2;
    controller->showPreviousTuning();
    EXPECT_EQ(state.chosenTuning, 6);
    EXPECT_EQ(state.chosenUkuleleType, 1);
    state.chosenTuning = 6;
    controller->showPreviousTuning();
    EXPECT_EQ(state.chosenUkuleleType, 2) << "5 is baritone";
}

TEST_F(Navigation, TitlesIconsAndLabelsFollowTheTuning) {
    platform.strings.set("TuningFreeTitle5", "Baritone");
    launch();
    for (int i = 0; i < 4; ++i)
        controller->showNextTuning();
    EXPECT_EQ(screen.currentTuningName.text, "Baritone");
    EXPECT_EQ(screen.goToChordsLibraryButton.image, "chord_icon_b.png");
    EXPECT_EQ(screen.firstString.text, "E4");
    EXPECT_EQ(screen.fourthString.text, "D3");
    controller->showNextTuning();
    EXPECT_EQ(screen.currentTuningName.text, "") << "a missing key gives the empty text";
    EXPECT_EQ(screen.goToChordsLibraryButton.image, "chord_icon.png");
}

TEST_F(Navigation, PadIconsAndOtherIdiom) {
    setDevice(Idiom::Pad, 1194);
    launch();
    EXPECT_EQ(screen.goToChordsLibraryButton.image, "chord_icon_large.png");
    for (int i = 0; i < 4; ++i)
        controller->showNextTuning();
    EXPECT_EQ(screen.goToChordsLibraryButton.image, "chord_icon_b_large.png");

    rebuild();
    setDevice(Idiom::Other, 844);
    platform.strings.set("TunerAboutMsg2", "about");
    platform.strings.set("TuningFreeTitle1", "Standard");
    controller->displayTunings();
    EXPECT_EQ(screen.aboutMsg2.text, "about");
    EXPECT_EQ(screen.currentTuningName.text, "") << "only the about texts on another idiom";
    EXPECT_EQ(screen.firstString.text, "");
}

TEST_F(Navigation, RingsGoAfterTheActionReturns) {
    launch();
    controller->displayTunedString(1);
    controller->displayTunedString(3);
    controller->showNextTuning();
    EXPECT_EQ(screen.ring1.image, "ring1.png") << "removal is a zero-delay message";
    platform.runLoop.runPending();
    EXPECT_EQ(screen.ring1.image, "");
    EXPECT_EQ(screen.ring3.image, "");
    EXPECT_EQ(state.ringShown, (std::array<uint8_t, 4>{0, 0, 0, 0}));
}

TEST_F(Navigation, OutOfRangeTuningChangesNothing) {
    launch();
    const TunerScreenModel before = screen;
    state.chosenTuning = 12;
    controller->displayNotes();
    controller->localizeNotes();
    EXPECT_EQ(screen.firstString, before.firstString);
    EXPECT_EQ(screen.firstStringNoteAndFreq, before.firstStringNoteAndFreq);
}

} // namespace
} // namespace uke
