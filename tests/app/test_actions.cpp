// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#include <cmath>
#include <vector>

#include "app/Actions.h"
#include "support/TunerFixture.h"

namespace uke {
namespace {

using actions::Screen;

class Actions : public test::TunerFixture {};

// What a view or the page can hand an action and the app must refuse, with the
// reason the log and the tool give; nothing refused reaches the store. Rows past
// the picker's end and steps past either end of the tuning list are refused with
// the same reasons in the golden screen errors.
TEST_F(Actions, RefusesWhatNoControlCouldSendAndSaysWhy) {
    app->start();
    const double nan = std::nan("");
    const struct {
        Screen screen;
        const char* name;
        std::vector<double> args;
        const char* why;
    } cases[] = {
        {Screen::Tuner, "dance", {}, "there is no such action"},
        {Screen::Chords, "showNextTuning", {}, "there is no such action"},
        {Screen::Tuner, "micSensitivity", {}, "micSensitivity takes 1 argument, not 0"},
        {Screen::Tuner, "showNextTuning", {1}, "showNextTuning takes 0 arguments, not 1"},
        {Screen::Tuner, "micSensitivity", {nan}, "micSensitivity takes finite numbers"},
        {Screen::Tuner, "toggleFreqChart", {INFINITY}, "toggleFreqChart takes finite numbers"},
        {Screen::Tuner, "micSensitivity", {10.5}, "slider takes 0 to 10"},
        {Screen::Tuner, "setFrequencyValue", {414}, "stepper takes 415 to 466"},
        {Screen::Tuner, "didSelectRow", {1.5}, "the picker has rows 0 to 5"},
        {Screen::Chords, "toggleSharpOfFlat", {}, "the chord library is not open"},
        {Screen::Chords, "didSelectRow", {1, 0}, "the chord library is not open"},
    };
    const auto stored = platform.store->keys();
    for (const auto& c : cases) {
        const size_t logged = platform.log.lines.size();
        EXPECT_EQ(actions::run(*app, c.screen, c.name, c.args), c.why) << c.name;
        ASSERT_EQ(platform.log.lines.size(), logged + 1) << c.name;
        EXPECT_EQ(platform.log.lines.back(), std::string("Action ") + c.name + " refused: " + c.why);
    }
    EXPECT_EQ(platform.store->keys(), stored);
    EXPECT_EQ(state.chosenTuning, 1);
}

TEST_F(Actions, ChordPickersTakeTheirOwnRowsOnlyWhileTheLibraryIsOpen) {
    app->start();
    ASSERT_EQ(actions::run(*app, Screen::Tuner, "openChords", {}), "");
    const std::vector<double> noPicker{9, 0}, pastRoots{1, 12}, lastRoot{1, 11};
    EXPECT_EQ(actions::run(*app, Screen::Chords, "didSelectRow", noPicker), "there is no chord picker 9");
    EXPECT_EQ(actions::run(*app, Screen::Chords, "didSelectRow", pastRoots), "the picker has rows 0 to 11");
    EXPECT_EQ(actions::run(*app, Screen::Chords, "didSelectRow", lastRoot), "");
    EXPECT_EQ(app->chordScreen().selectRootChord.selectedRow, 11);
    EXPECT_EQ(actions::run(*app, Screen::Chords, "closeChords", {}), "");
    EXPECT_FALSE(app->chordsOpen());
}

// One panel at a time, never under the chord library; the beep keeps quiet while
// the tuning fork is open, and the fork opens only where its button shows.
TEST_F(Actions, PanelsOpenOneAtATimeAndTheForkQuietsTheBeep) {
    app->start();
    const struct {
        Screen screen;
        const char* name;
        const char* why;
        const char* panel;
    } steps[] = {
        {Screen::Tuner, "closePanel", "no panel is open", ""},
        {Screen::Tuner, "openTuningFork", "", "tuningFork"},
        {Screen::Tuner, "openSettings", "a panel is open: tuningFork", "tuningFork"},
        {Screen::Tuner, "closePanel", "", ""},
        {Screen::Tuner, "openAbout", "", "about"},
        {Screen::Tuner, "closePanel", "", ""},
        {Screen::Tuner, "openChords", "", ""},
        {Screen::Tuner, "openSettings", "the chord library covers the tuner", ""},
    };
    for (const auto& step : steps) {
        EXPECT_EQ(actions::run(*app, step.screen, step.name, {}), step.why) << step.name;
        EXPECT_STREQ(TunerApp::panelName(app->panel()), step.panel) << step.name;
        EXPECT_EQ(state.tuningForkFlag, std::string(step.panel) == "tuningFork") << step.name;
    }
}

TEST_F(Actions, NoTuningForkWhereItsButtonIsHidden) {
    app->start();
    app->tunerScreen().tuningForkButton.hidden = true; // as on a system before 6
    EXPECT_EQ(actions::run(*app, Screen::Tuner, "openTuningFork", {}), "this device offers no tuning fork");
    EXPECT_FALSE(state.tuningForkFlag);
}

} // namespace
} // namespace uke
