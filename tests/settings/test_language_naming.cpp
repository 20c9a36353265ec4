// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
// The six note-naming systems over the tuner screen. Row 0 fills the language's
// note formats, which every language has whole (the string table tests).
#include <gtest/gtest.h>

#include <array>
#include <sstream>
#include <string>

#include "base/SettingsKeys.h"
#include "platform/virtual/TsStringTable.h"
#include "settings/NoteNaming.h"
#include "support/TunerFixture.h"

namespace uke {
namespace {

using Four = std::array<std::string, 4>;

struct Texts {
    Four notes, chart, buttons;
    bool operator==(const Texts&) const = default;
    friend void PrintTo(const Texts& t, std::ostream* os) {
        for (const Four* f : {&t.notes, &t.chart, &t.buttons})
            *os << "[" << (*f)[0] << " | " << (*f)[1] << " | " << (*f)[2] << " | " << (*f)[3] << "] ";
    }
};

Four words(const char* text) {
    Four out;
    std::istringstream in(text);
    for (std::string& w : out)
        in >> w;
    return out;
}

// What rows 1 to 5 write at A4 = 440 Hz, and whether the chart switch holds them back.
struct NamedRow {
    long row;
    int64_t tuning;
    const char* notes;
    const char* named; // on the buttons and in the chart; nullptr: as the notes
    const char* unit;
    bool honoursChartSwitch;

    Texts texts() const {
        static const Four hz[] = {words("440.0 329.6 261.6 392.0"), words("329.6 246.9 196.0 146.8")};
        Texts t{words(notes), {}, words(named ? named : notes)};
        for (size_t i = 0; i < 4; ++i)
            t.chart[i] = t.buttons[i] + " = " + hz[tuning - 1][i] + unit;
        return t;
    }
};

const NamedRow kNamedRows[] = {
    {1, 1, "A4 E4 C4 G4", nullptr, "Hz", true},
    {2, 1, "La4 Mi4 Do4 Sol4", nullptr, "Hz", false},
    {3, 1, "La4 Mi4 Do4 Sol4", nullptr, "Hz", false},
    {4, 1, "A4 E4 C4 G4", nullptr, "Hz", true},
    {5, 1, "Ля Ми До Соль", "Ля4 Ми4 До4 Соль4", "Гц", false},
    // Tuning 2's rows name the baritone strings and fill in their pitches; the
    // Cyrillic row deliberately keeps the Latin unit there.
    {1, 2, "E4 B3 G3 D3", nullptr, "Hz", true},
    {2, 2, "Mi4 Si3 Sol3 Re3", nullptr, "Hz", false},
    {3, 2, "Mi4 Si3 Sol3 Ré3", nullptr, "Hz", false},
    {4, 2, "E4 H3 G3 D3", nullptr, "Hz", true},
    {5, 2, "Ми Си Соль Ре", "Ми4 Си3 Соль3 Ре3", "Hz", false},
};

class NamingOverride : public test::TunerFixture {
protected:
    void goTo(int64_t tuning) {
        while (state.chosenTuning < tuning)
            controller->showNextTuning();
    }
    Texts texts() const {
        return {{screen.firstString.text, screen.secondString.text, screen.thirdString.text, screen.fourthString.text},
                {screen.firstStringNoteAndFreq.text, screen.secondStringNoteAndFreq.text,
                 screen.thirdStringNoteAndFreq.text, screen.fourthStringNoteAndFreq.text},
                {screen.a4TFButton.title, screen.e4TFButton.title, screen.c4TFButton.title, screen.g4TFButton.title}};
    }
};

TEST_F(NamingOverride, EveryRowWritesItsTextsAndOnlySomeHonourTheChartSwitch) {
    for (const bool chartOn : {true, false})
        for (const NamedRow& r : kNamedRows) {
            SCOPED_TRACE("row " + std::to_string(r.row) + ", tuning " + std::to_string(r.tuning) +
                         (chartOn ? ", chart on" : ", chart off"));
            platform.memoryStore.wipeDomain(); // a fresh install: nothing of the last round lingers
            rebuild();
            launch();
            goTo(r.tuning);
            if (!chartOn)
                controller->toggleFreqChart(false);
            const Texts before = texts();
            app->selectLanguage(r.row);
            Texts expected = r.texts();
            if (!chartOn && r.honoursChartSwitch)
                expected.chart = before.chart;
            EXPECT_EQ(texts(), expected);
        }
}

// The picker's rows in every language are in the golden screen outputs.
TEST_F(NamingOverride, EveryChangeOfTuningReappliesTheChoiceWhereItCan) {
    if (demoModeEnabled)
        GTEST_SKIP() << "the demonstration picture writes the note labels itself";
    launch();
    goTo(2);
    app->selectLanguage(2);
    EXPECT_EQ(screen.secondStringNoteAndFreq.text, "Si3 = 246.9Hz");
    // Stepping back writes letters, then the same naming over tuning 1.
    controller->showPreviousTuning();
    EXPECT_EQ(screen.firstString.text, "La4");
    // Tuning 3 has no naming texts: the letters of localizeNotes stay.
    goTo(3);
    EXPECT_EQ(screen.firstString.text, "B4");
    EXPECT_EQ(screen.secondStringNoteAndFreq.text, "F#4 = 370.0Hz");
}

TEST_F(NamingOverride, OnlyTheRowBothChosenAndStoredIsAppliedAndOnlyAtTheOverride) {
    launch();
    controller->didSelectRow(3);
    controller->didSelectRow(6); // rows above five, and below zero, are ignored
    controller->didSelectRow(-1);
    EXPECT_EQ(state.languageIndex, 3);
    EXPECT_EQ(platform.memoryStore.integerForKey(keys::SavedLanguage), 3);
    EXPECT_EQ(screen.firstString.text, "A4") << "selecting stores the row; the texts change only at the override";
    // After a relaunch the stored row alone changes nothing, nor does one chosen but not stored.
    rebuild();
    launch();
    ASSERT_EQ(state.languageIndex, 1);
    controller->overrideDefaultLanguage();
    EXPECT_EQ(texts(), kNamedRows[0].texts()) << "the letters of row 1";
    state.languageIndex = 2;
    controller->overrideDefaultLanguage();
    EXPECT_EQ(screen.firstString.text, "A4");
}

TEST_F(NamingOverride, TuningsOtherThanOneAndTwoAreLeftAlone) {
    launch();
    goTo(2);
    for (int64_t tuning = 3; tuning <= 11; ++tuning) {
        controller->showNextTuning();
        ASSERT_EQ(state.chosenTuning, tuning);
        const Texts before = texts();
        controller->didSelectRow(5);
        controller->overrideDefaultLanguage();
        EXPECT_EQ(texts(), before) << tuning;
    }
}

// Row 0: the language's formats filled with octave 4 everywhere, also over tuning
// 2's lower strings; only the object placeholder is filled, a doubled percent sign
// is one and a lone one stays; a missing key leaves an empty label; the chart and
// the buttons stay as they were.
TEST_F(NamingOverride, TheDeviceLanguageRowFillsTheLanguagesNoteFormats) {
    platform.strings.set("ENoteM", "Mi%@-%@");
    platform.strings.set("CNoteM", "%@ do %d");
    platform.strings.set("GNoteM", "G%@%% 50%");
    launch();
    for (int64_t tuning : {1, 2}) {
        goTo(tuning);
        const Texts before = texts();
        app->selectLanguage(0);
        const Four notes = tuning == 1 ? Four{"", "Mi4-4", "4 do %d", "G4% 50%"} : Four{"Mi4-4", "", "G4% 50%", ""};
        EXPECT_EQ(texts(), (Texts{notes, before.chart, before.buttons})) << tuning;
    }
}

// Each class's own scale is the start-up device table's; here that the picker
// takes it, a pad of no table the pads' one, anything else the layout's.
TEST_F(NamingOverride, PickerScaleFollowsTheDeviceClass) {
    for (const auto& [idiom, height, scale] :
         {std::tuple{Idiom::Pad, 777.0, 0.9}, {Idiom::Phone, 900.0, 1.0}, {Idiom::Other, 667.0, 1.0}}) {
        setDevice(idiom, height);
        rebuild();
        controller->loadPickerViewSettings();
        EXPECT_EQ(screen.establecerIdioma.scale, scale) << height;
    }
}

// The app's string tables: every language complete, formats intact, fallbacks.
size_t count(const std::string& text, const std::string& what) {
    size_t n = 0;
    for (size_t p = text.find(what); p != std::string::npos; p = text.find(what, p + what.size()))
        ++n;
    return n;
}

// The six languages the app speaks are the tuner naming tests' parameters.
class EveryLanguage : public ::testing::TestWithParam<std::string> {
protected:
    const TsStringTable& table() const { return *builtInStrings(GetParam()); }
};

TEST_P(EveryLanguage, HasEveryKeyEnglishHasAndNoOthersWithThePlaceholdersIntact) {
    const TsStringTable* english = builtInStrings("en");
    ASSERT_TRUE(english && !english->tables().empty());
    for (const auto& [context, messages] : english->tables()) {
        for (const auto& [key, text] : messages) {
            const std::string translated = table().localized(key, context);
            EXPECT_NE(translated, "") << GetParam() << " lacks " << context << "/" << key;
            EXPECT_EQ(count(translated, "%@"), count(text, "%@")) << GetParam() << " " << key << ": " << translated;
            EXPECT_EQ(count(translated, "%"), count(text, "%")) << GetParam() << " " << key << ": " << translated;
        }
    }
    for (const auto& [context, messages] : table().tables())
        for (const auto& [key, text] : messages)
            EXPECT_TRUE(english->lookup(key, context).has_value())
                << GetParam() << " has " << context << "/" << key << ", which English does not";
}

INSTANTIATE_TEST_SUITE_P(Tables, EveryLanguage, ::testing::ValuesIn(builtInLanguages()),
                         [](const ::testing::TestParamInfo<std::string>& info) { return info.param; });

// A language the app lacks falls back to English: the golden screen outputs (--lang xx).
TEST(StringTables, UnfinishedAndEmptyTranslationsCountAsMissing) {
    TsStringTable t;
    ASSERT_TRUE(t.parse(R"(<TS version="2.1" language="es"><context><name>Localizable</name>
        <message><source>Done</source><translation>Listo</translation></message>
        <message><source>Lang0</source><translation type="unfinished">Idioma</translation></message>
        <message><source>Lang1</source><translation></translation></message>
        <message><source>A&amp;B</source><translation>A y B</translation></message>
        </context></TS>)"));
    EXPECT_EQ(t.localized("Done"), "Listo");
    EXPECT_EQ(t.lookup("Lang0", "Localizable"), std::nullopt);
    EXPECT_EQ(t.lookup("Lang1", "Localizable"), std::nullopt);
    EXPECT_EQ(t.localized("A&B"), "A y B");
    EXPECT_FALSE(TsStringTable{}.parse("not a linguist file"));
}

} // namespace
} // namespace uke
