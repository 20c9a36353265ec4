// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace uke {

class StringTable;

// How chord names spell the five black-key roots.
enum class Spelling { Sharps, Flats };

// Roots, chord types and charts of the chord library. In this screen's words a
// "chord" is a root and a "variant" a chord type.
class ChordCatalogue {
public:
    // The root keys: what the screen selects and the shape table is keyed by,
    // whatever the naming system shows.
    static constexpr std::array<std::string_view, 12> rootKeys = {"A",     "A#/B♭", "B", "C",     "C#/D♭", "D",
                                                                  "D#/E♭", "E",     "F", "F#/G♭", "G",     "G#/A♭"};
    // Chord-type keys of charts 1 and 2; "-" is the major triad.
    static constexpr std::array<std::string_view, 15> fullVariantKeys = {
        "-", "m", "aug", "dim", "7", "m7", "maj7", "6", "m6", "add9", "m9", "9", "sus2", "sus4", "7sus4"};
    // Chord-type keys of charts 3 and 4, deliberately in an order of their own.
    static constexpr std::array<std::string_view, 10> shortVariantKeys = {"-",  "m", "aug",  "dim", "6",
                                                                          "m6", "7", "maj7", "m7",  "9"};

    static constexpr int64_t kFirstChart = 1;
    static constexpr int64_t kLastChart = 4;
    static bool isChart(int64_t chart) { return chart >= kFirstChart && chart <= kLastChart; }

    // The chord types a chart offers, in picker order; empty for a chart outside 1..4.
    static std::span<const std::string_view> variantKeys(int64_t chart);
    // Index of `key` in the root keys, or -1.
    static int rootIndex(std::string_view key);

    // Root names of naming system `language` (0..5) in root-key order. System 0
    // looks each root key up in `strings`; the others are fixed. Empty outside 0..5.
    static std::vector<std::string> rootNames(int64_t language, const StringTable& strings);

    // Key of the chart's second title line ("ChordsTitleSCT", ...); empty outside 1..4.
    static std::string_view titleKey(int64_t chart);
    // Open strings 4 to 1 ("G", "C", "E", "A"); empty outside 1..4.
    static std::span<const std::string_view> openStrings(int64_t chart);
    // The chart's neck picture family ("bchords", ...); empty for chart 1, whose
    // picture is the screen layout's own, and outside 1..4.
    static std::string_view fretboardFamily(int64_t chart);

    // A root key spelled for the mode: "A#" or "B♭"; naturals are plain letters.
    static std::string spelledRoot(std::string_view rootKey, Spelling spelling);
    // "Am7", "D♭add9", "C": the spelled root followed by the type key, "-" adding nothing.
    static std::string chordName(std::string_view rootKey, std::string_view variantKey, Spelling spelling);
};

} // namespace uke
