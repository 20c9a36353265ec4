// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <algorithm>

#include "ChordsFixture.h"
#include "base/SettingsKeys.h"
#include "chords/ChordShapeTable.h"
#include "chords/ChordsViewController.h"
#include "support/TunerFixture.h"
#include <tuple>

namespace uke {
namespace {

using test::ChordsFixture;

std::vector<std::string> strings(std::span<const std::string_view> keys) { return {keys.begin(), keys.end()}; }

long rowOf(std::span<const std::string_view> keys, std::string_view key) {
    return static_cast<long>(std::find(keys.begin(), keys.end(), key) - keys.begin());
}

// The marks on the board, in the chart notation, for comparing whole drawings.
std::string drawn(const ChordScreenModel& s) {
    std::string out;
    for (int str = 4; str >= 1; --str) {
        const std::string& status = s.stringStatus(str).image;
        std::string group = status == "circle.png" ? "o" : status == "x.png" ? "x" : "";
        for (int r = 1; r <= 4; ++r)
            if (s.cell(str, r).image == "dot.png")
                group += static_cast<char>('0' + r);
        out += group.empty() ? "-" : group.size() == 1 ? group : "(" + group + ")";
    }
    for (const auto& [name, view] :
         {std::pair{"/R1=", &s.rightNumberFr1}, {"/R2=", &s.rightNumberFr2}, {"/L2=", &s.leftNumberFr2}})
        if (!view->image.empty())
            out += name + view->image.substr(0, 1);
    return out;
}

class ChordsScreen : public ChordsFixture {
protected:
    // Turns the pickers to (root, type) as a user would.
    void select(std::string_view root, std::string_view variant) {
        controller->didSelectRow(1, rowOf(ChordCatalogue::rootKeys, root));
        const int64_t tag = screen.selectVariant.tag;
        controller->didSelectRow(tag, rowOf(ChordCatalogue::variantKeys(controller->ukuleleType), variant));
    }
    // Roots and chords searched, as stored.
    std::pair<long, long> counts() const { return {stored(keys::chordsSearched), stored(keys::variantsSearched)}; }
    // The chord's name and the spelling switch's picture.
    using Spelled = std::pair<std::string, std::string>;
    Spelled spelled() const { return {screen.chordDisplay.text, screen.buttonFlatOrSharp.image}; }
};

// A chart's titles: the chord screen's view test (chart 4). Charts other than 1 to
// 4, naming rows other than 0 to 5 and rows past a picker's end never reach the
// screen: the tuner hands over only those (the segue test) and the actions refuse
// the rest.
TEST_F(ChordsScreen, PickersNameTheRootsInTheNamingSystemAndAnswerByTag) {
    auto& c = open(1, 1);
    EXPECT_EQ(c.chordList(), strings(ChordCatalogue::rootKeys));
    EXPECT_EQ(c.variantList(), strings(ChordCatalogue::fullVariantKeys));
    EXPECT_EQ(screen.selectRootChord.rows, c.chordList());
    EXPECT_EQ(screen.selectRootChord.tag, 1);
    EXPECT_EQ(screen.selectVariant.tag, 2);
    EXPECT_EQ(c.numberOfRowsInComponent(2), 15);
    EXPECT_EQ(c.numberOfRowsInComponent(0) + c.numberOfRowsInComponent(5), 0);
    EXPECT_EQ(c.titleForRow(1, 3), "C");
    EXPECT_EQ(c.titleForRow(7, 9), "add9") << "every tag but 1 reads the type list";

    // The naming systems' own names (a table), and row 0's localised ones.
    EXPECT_EQ(open(2, 3).chordList()[4], "Do#/Ré♭");
    EXPECT_EQ(open(1, 0).chordList()[0], "loc:A");
    // Open tunings force localised roots and the short list.
    for (int64_t chart : {3, 4}) {
        for (int64_t language : {1, 2, 9}) {
            auto& c = open(chart, language);
            EXPECT_EQ(c.chordList()[0], "loc:A") << chart << "/" << language;
            EXPECT_EQ(c.variantList(), strings(ChordCatalogue::shortVariantKeys));
            EXPECT_EQ(screen.selectVariant.tag, chart);
        }
    }
    platform.strings.entries.clear();
    EXPECT_EQ(open(1, 0).chordList(), std::vector<std::string>(12, "")) << "missing strings give empty names";
}

TEST_F(ChordsScreen, RowsSelectKeysFromTheFixedTablesNeverFromTheText) {
    auto& c = open(1, 5);
    c.didSelectRow(1, 1);
    EXPECT_EQ(c.currentChord(), "A#/B♭");
    c.didSelectRow(2, 4);
    EXPECT_EQ(screen.chordDisplay.text, "A#7");
    EXPECT_EQ(screen.selectVariant.selectedRow, 4);

    auto& open3 = open(3);
    open3.didSelectRow(3, 4);
    EXPECT_EQ(open3.currentVariant(), "6");
    // A full-list type on an open tuning finds no shape: the board stays cleared.
    open3.didSelectRow(2, 12);
    EXPECT_EQ(open3.currentVariant(), "sus2");
    EXPECT_EQ(screen.chordDisplay.text, "-");
    EXPECT_EQ(drawn(screen), "----");
}

TEST_F(ChordsScreen, FirstChordComesFromTwoDrawsOfEight) {
    open(1, 1, {7, 7});
    EXPECT_EQ(bounds, (std::vector<uint32_t>{8, 8}));
    EXPECT_EQ(screen.selectRootChord.selectedRow, 7);
    EXPECT_EQ(screen.selectVariant.selectedRow, 7);
    EXPECT_EQ(screen.chordDisplay.text, "E6");

    auto& open4 = open(4, 1, {0, 7});
    EXPECT_EQ(open4.currentChord(), "A");
    EXPECT_EQ(open4.currentVariant(), "maj7") << "row 7 of the short list";
}

TEST_F(ChordsScreen, OpeningCountsTwoRootsAndThreeChords) {
    auto& c = open(1, 1, {3, 1});
    EXPECT_EQ(counts(), std::pair(2L, 3L));
    EXPECT_EQ(platform.memoryStore.synchronizeCount, 5) << "every count is written through at once";
    c.didSelectRow(2, 9);
    EXPECT_EQ(counts(), std::pair(2L, 4L)) << "a chord type never counts as a root";
    c.didSelectRow(1, 0);
    EXPECT_EQ(counts(), std::pair(3L, 5L));
    open(2);
    EXPECT_EQ(counts(), std::pair(5L, 8L)) << "counts persist across openings";
}

TEST_F(ChordsScreen, RatingCheckLogsBothCountsAndAsksOnlyAtFiveToTwentyFive) {
    open(1);
    EXPECT_EQ(platform.log.lines, (std::vector<std::string>{"Acordes consultados:1", "Variantes consultadas:0",
                                                            "Acordes consultados:2", "Variantes consultadas:2"}));

    // An opening counts two roots: from 5 it passes no multiple of five.
    for (const auto& [start, asks] : {std::pair{3L, 1}, {4L, 1}, {5L, 0}}) {
        platform.store->setInteger(keys::chordsSearched, start);
        ratingAsks = 0;
        open(1);
        EXPECT_EQ(ratingAsks, asks) << "from " << start;
    }

    for (long due : {10L, 15L, 20L, 25L, 30L, 35L}) {
        platform.store->setInteger(keys::chordsSearched, due - 1);
        ratingAsks = 0;
        controller->didSelectRow(1, 2);
        EXPECT_EQ(ratingAsks, due <= 25 ? 1 : 0) << due;
    }
}

TEST_F(ChordsScreen, SharpFlatSwitchSpellsTheNameOffersTheOtherSpellingAndOutlivesTheScreen) {
    auto& c = open(1, 1, {1, 9});
    EXPECT_EQ(spelled(), Spelled("A#add9", "flat.png"));
    const auto [chords, variants] = counts();
    c.toggleSharpOfFlat();
    EXPECT_EQ(spelled(), Spelled("B♭add9", "sharp.png"));
    EXPECT_EQ(state.showFlatNames, 1);
    EXPECT_EQ(state.showSharpNames, 0);
    EXPECT_EQ(counts(), std::pair(chords + 1, variants + 1));

    c.toggleSharpOfFlat();
    EXPECT_EQ(spelled(), Spelled("A#add9", "flat.png"));
    EXPECT_EQ(state.accidentalToggle, 0);
    EXPECT_EQ(drawn(screen), "3213") << "both spellings draw the same entry";

    // The spelling outlives the screen, but the button starts from the layout.
    c.toggleSharpOfFlat();
    auto& again = open(1, 1, {6, 0});
    EXPECT_EQ(spelled(), Spelled("E♭", "flat.png"));
    again.toggleSharpOfFlat();
    EXPECT_EQ(spelled(), Spelled("D#", "flat.png"));

    // An inconsistent spelling state draws nothing.
    for (int64_t both : {1, 0}) {
        state.showSharpNames = state.showFlatNames = both;
        open(1, 1, {3, 0});
        EXPECT_EQ(screen.chordDisplay.text, "-") << both;
        EXPECT_EQ(drawn(screen), "----") << both;
    }
}

// Every authored shape, drawn one after the other over the same board: what one
// drawing leaves behind would show in the next.
TEST_F(ChordsScreen, DrawsEveryShapeOfEveryChartAndClearsBetweenDrawings) {
    int64_t chart = 0;
    for (const ChordShapeRecord& r : ChordShapeTable::records()) {
        if (r.chart != chart)
            open(chart = r.chart);
        select(r.root, r.variant);
        EXPECT_EQ(drawn(screen), shapeNotation(r.shape)) << r.chart << " " << r.root << " " << r.variant;
    }
    open(1);
    select("C", "6");
    EXPECT_EQ(drawn(screen), "----") << "the empty entry leaves every mark view empty";
    EXPECT_EQ(screen.chordDisplay.text, "C6");
}

TEST_F(ChordsScreen, NeckPictureFollowsTheChartAndTheExactScreenHeightAndOutlivesClearing) {
    // Each chart's prefix once (each class's suffix is the start-up device table's),
    // a pad of no table, then what keeps the layout's own picture.
    const std::tuple<int64_t, Idiom, double, const char*> cases[] = {
        {2, Idiom::Phone, 480, "bchords_iPhone.png"}, {3, Idiom::Phone, 812, "slchords_iPhone6Plus.png"},
        {4, Idiom::Pad, 777, "slbchords_iPad.png"},   {4, Idiom::Phone, 667.5, "fretboard.png"},
        {2, Idiom::Other, 667, "fretboard.png"},      {1, Idiom::Pad, 1024, "fretboard.png"},
        {5, Idiom::Phone, 480, "fretboard.png"},
    };
    for (const auto& [chart, idiom, height, picture] : cases) {
        platform.device.idiomValue = idiom;
        platform.device.height = height;
        open(chart).clearFretboard(); // empties the board but keeps the picture
        EXPECT_EQ(screen.ukuleleFretboard.image, picture) << chart << " at " << height;
        EXPECT_EQ(drawn(screen), "----");
        EXPECT_EQ(screen.chordDisplay.text, "-");
    }
}

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

TEST(ShapeNotation, RefusesWhatIsNotAShape) {
    for (const char* bad : {"", "123", "12345", "12(3", "12()3", "12y3", "1234/R3=2", "1234/R1=1", "1234/R1=10",
                            "1234/", "(11)234", "(oo)234", "1234/R15"}) {
        std::string error;
        EXPECT_FALSE(parseShapeNotation(bad, &error)) << bad;
        EXPECT_FALSE(error.empty()) << bad;
        EXPECT_EQ(error.find('\n'), std::string::npos) << bad;
    }
}

// Every key's shape is in the golden chord charts, and the chord screen tests draw
// every entry by its keys (an entry filed twice would draw the other's shape).
TEST(ChordShapeTable, LookupIsAnExactMatchWithoutFallback) {
    // Spelled names ("A#", "B♭") are not keys; neither are missing shapes or charts.
    const std::tuple<int64_t, const char*, const char*> absent[] = {
        {3, "C", "sus2"}, {4, "A", "add9"}, {0, "A", "-"},   {5, "A", "-"},
        {1, "", "-"},     {1, "A", ""},     {1, "A#", "m7"}, {1, "B♭", "m7"},
    };
    for (const auto& [chart, root, variant] : absent)
        EXPECT_EQ(ChordShapeTable::find(chart, root, variant), nullptr) << chart << " " << root << " " << variant;
    EXPECT_NE(ChordShapeTable::find(1, "A#/B♭", "m7"), nullptr);
}

} // namespace
} // namespace uke
