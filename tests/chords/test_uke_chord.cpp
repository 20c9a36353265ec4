#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "Commands.h"

namespace uke {
namespace {

struct Result {
    int status;
    std::string out, err;
};

Result uke(std::vector<std::string> words) {
    std::ostringstream out, err;
    const int status = tool::run(words, out, err);
    return {status, out.str(), err.str()};
}

TEST(UkeChord, NotationIsTheAuthoredCell) {
    EXPECT_EQ(uke({"chord", "--chart", "1", "--root", "C#", "--type", "add9", "--format", "notation"}).out,
              "1(13)1(14)\n");
    EXPECT_EQ(uke({"chord", "--chart", "1", "--root", "G#/A♭", "--type", "-", "--format", "notation"}).out,
              "4232/L2=3\n");
    EXPECT_EQ(uke({"chord", "--chart", "3", "--root", "E", "--type", "m7", "--format", "notation"}).out, "(o4)2o-\n");
    // Every way of writing the same root finds the same entry.
    for (const char* root : {"A#/B♭", "A#", "Bb", "B♭", "bb"})
        EXPECT_EQ(uke({"chord", "--chart", "1", "--root", root, "--type", "m7", "--format", "notation"}).out, "1111\n")
            << root;
    EXPECT_EQ(uke({"chord", "--chart", "2", "--root", "E", "--type", "major", "--format", "notation"}).out, "21oo\n");
}

TEST(UkeChord, TextAndJsonSpellTheNameAsTheScreenDoes) {
    const Result text = uke({"chord", "--chart", "1", "--root", "A#", "--type", "7sus4", "--flats"});
    EXPECT_EQ(text.status, 0);
    EXPECT_EQ(text.out.substr(0, text.out.find('\n')), "B♭7sus4");
    EXPECT_NE(text.out.find("G   C   E   A"), std::string::npos);
    EXPECT_NE(text.out.find("╒═══╤═══╤═══╕"), std::string::npos) << "no label: the grid starts at the nut";

    const Result labelled = uke({"chord", "--chart", "1", "--root", "Ab", "--type", "-"});
    EXPECT_EQ(labelled.out.substr(0, labelled.out.find('\n')), "G#");
    EXPECT_NE(labelled.out.find("3  │   ●   │   ●\n"), std::string::npos) << labelled.out;

    const Result json = uke({"chord", "--chart", "1", "--root", "Eb", "--type", "m9", "--format", "json", "--flats"});
    EXPECT_EQ(json.status, 0);
    EXPECT_NE(json.out.find("\"name\": \"E♭m9\""), std::string::npos);
    EXPECT_NE(json.out.find("\"label\": {\"position\": \"R2\", \"number\": 4}"), std::string::npos);
    EXPECT_NE(json.out.find("{\"string\": 2, \"open\": false, \"muted\": true, \"rows\": [], \"frets\": []}"),
              std::string::npos);
    EXPECT_NE(json.out.find("{\"string\": 1, \"open\": false, \"muted\": false, \"rows\": [4], \"frets\": [6]}"),
              std::string::npos);

    const Result svg = uke({"chord", "--chart", "4", "--root", "E", "--type", "6", "--format", "svg"});
    EXPECT_EQ(svg.out.rfind("<svg", 0), 0u);
    EXPECT_NE(svg.out.find(">E6</text>"), std::string::npos);
}

TEST(UkeChord, MissingShapeAndBadArgumentsAreReportedOnOneLine) {
    const Result none = uke({"chord", "--chart", "3", "--root", "C", "--type", "sus2"});
    EXPECT_EQ(none.status, 1);
    EXPECT_TRUE(none.out.empty());
    EXPECT_NE(none.err.find("no shape"), std::string::npos);

    const std::vector<std::vector<std::string>> bad = {
        {"chord", "--chart", "5", "--root", "C", "--type", "m"},
        {"chord", "--chart", "x", "--root", "C", "--type", "m"},
        {"chord", "--chart", "1", "--root", "H", "--type", "m"},
        {"chord", "--chart", "1", "--root", "Cb", "--type", "m"},
        {"chord", "--chart", "1", "--root", "C", "--type", "m11"},
        {"chord", "--chart", "1", "--root", "C"},
        {"chord", "--chart", "1", "--root", "C", "--type", "m", "--format", "png"},
        {"chord", "--chart", "1", "--root", "C", "--type", "m", "extra"},
        {"chord", "--chart"},
        {"chords"},
        {"chords", "--chart", "0"},
        {"chords", "--chart", "1", "--format", "json"},
    };
    for (const auto& words : bad) {
        const Result r = uke(words);
        EXPECT_EQ(r.status, 2) << words.back();
        EXPECT_TRUE(r.out.empty()) << words.back();
        EXPECT_EQ(std::count(r.err.begin(), r.err.end(), '\n'), 1) << r.err;
    }
}

TEST(UkeChords, NotationListsTheWholeChartAsAuthored) {
    std::ifstream in(std::string(UKE_SOURCE_DIR) + "/tests/chords/data/chord_charts.txt");
    std::stringstream all;
    all << in.rdbuf();
    for (int chart = 1; chart <= 4; ++chart) {
        const Result r = uke({"chords", "--chart", std::to_string(chart), "--format", "notation"});
        EXPECT_EQ(r.status, 0);
        EXPECT_EQ(std::count(r.out.begin(), r.out.end(), '\n'), 13);
        EXPECT_NE(all.str().find("chart " + std::to_string(chart) + "\n" + r.out), std::string::npos) << r.out;
    }
}

TEST(UkeChords, TextSpellsTheRootsForTheMode) {
    const Result sharps = uke({"chords", "--chart", "2"});
    const Result flats = uke({"chords", "--chart", "2", "--flats"});
    EXPECT_NE(sharps.out.find("│ A#   │ o331"), std::string::npos) << sharps.out;
    EXPECT_NE(flats.out.find("│ B♭   │ o331"), std::string::npos) << flats.out;
    EXPECT_NE(sharps.out.find("│ root │ -"), std::string::npos);
    EXPECT_NE(sharps.out.find("7sus4"), std::string::npos);
}

} // namespace
} // namespace uke
