// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#include "chords/ChordShapeTable.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <span>
#include <string>
#include <tuple>

#include "chords/ChordCatalogue.h"

namespace uke {

namespace {

// The charts as authored: one row per root key, one cell per chord type in the
// chart's picker order, each cell in shape notation (strings 4, 3, 2, 1; "o" open,
// "x" muted, digits are dots in rows 1..4, "-" no mark, groups for several marks
// on one string, "/R1=n", "/R2=n", "/L2=n" the fret label).
template <size_t N> struct AuthoredRow {
    std::string_view root;
    std::array<std::string_view, N> cells;
};

// clang-format off
// Chart 1, standard tuning, strings 4 to 1 G C E A.
constexpr AuthoredRow<15> kStandard[] = {
    {"A", {"21oo", "2ooo", "2114", "2323", "o1oo", "oooo", "11oo", "212-", "2o2o", "21-2", "2oo2", "o1o2", "1341/R2=3", "22oo", "o2oo"}},
    {"A#/B♭", {"3211", "3111", "3221", "31o1", "1211", "1111", "321o", "o211", "3131", "3213", "3113", "3243", "3o11", "3311", "1311"}},
    {"B", {"4322", "4222", "4332", "4212", "2322", "2222", "4321", "1322", "1222", "4324", "21o2", "3243/R2=3", "4122", "4422", "2422"}},
    {"C", {"ooo3", "o333", "1oo3", "x323", "ooo1", "3333", "ooo2", "----", "2333", "o433", "4224/R2=3", "o2o1", "o233", "oo13", "oo11"}},
    {"C#/D♭", {"1114", "1444", "211o", "o1o4", "1112", "11o2", "1113", "1111", "11o1", "1(13)1(14)", "13o4", "1312", "1344", "1124", "1122"}},
    {"D", {"222o", "221o", "3221", "121x", "2223", "2213", "2224", "2222", "2212", "1314/R2=3", "14o4/R2=3", "2423", "22oo", "o23o", "2233"}},
    {"D#/E♭", {"o331", "3321", "o332", "232o", "3334", "3324", "2224/R2=3", "3333", "3323", "o311", "13x4/R2=4", "o111", "3344", "1341", "2233/R2=3"}},
    {"E", {"14o2", "o432", "1oo3", "o1o1", "12o2", "o2o2", "13o2", "4444", "o1o2", "1422", "o422", "1222", "4422", "1341/R2=3", "1122/L2=5"}},
    {"F", {"2o1o", "1o13", "211o", "1212", "2313", "1313", "2413", "2213", "1213", "oo1o", "o432/L2=3", "2333", "oo13", "3o11", "2233/R2=5"}},
    {"F#/G♭", {"(13)1(12)1", "212o", "3221", "2323", "3424", "2424", "2413/R2=3", "3324", "2123", "1121", "122o", "11o1", "1124", "4122", "2233/R1=5"}},
    {"G", {"o232", "o231", "o332", "o131", "o212", "o211", "o222", "o2o2", "o2o1", "o141/R2=3", "2231", "2212", "o23o", "o233", "o213"}},
    {"G#/A♭", {"4232/L2=3", "4342", "1oo3", "1212", "1323", "1322", "1333", "1313", "2324/R2=4", "3343", "2231/R2=3", "2212", "1341", "1344", "1324"}},
};

// Chart 2, baritone tuning a fourth lower, strings 4 to 1 D G B E.
constexpr AuthoredRow<15> kBaritone[] = {
    {"A", {"222o", "221o", "3221", "1212", "2223", "2213", "2224", "2222", "2212", "1314/R2=3", "14o4/R2=3", "2423", "22oo", "o23o", "2233"}},
    {"A#/B♭", {"o331", "3321", "o332", "2323", "3334", "3324", "2224/R2=3", "3333", "3o21", "o311", "13x4/R1=3", "o111", "3311", "1341", "2233/R2=3"}},
    {"B", {"14o2", "o432", "1oo3", "o4o1", "12o2", "o2o2", "13o2", "4444", "o1o2", "1422", "-3-2/L2=5", "1222", "4422", "1341/R2=3", "3344/R2=3"}},
    {"C", {"2o1o", "1o13", "211o", "1212", "2313", "1313", "2413", "2213", "1213", "oo1o", "o432/L2=3", "2333", "oo13", "3o11", "2233/R2=5"}},
    {"C#/D♭", {"3121", "212o", "3221", "2323", "3424", "2424", "2413/R2=3", "3324", "2123", "1121", "122o", "11o1", "1124", "4122", "1122/L2=7"}},
    {"D", {"o232", "o231", "o332", "o1o1", "o212", "o211", "o222", "o2o2", "o2o1", "o141/L2=3", "2231", "2212", "o23o", "o233", "o213"}},
    {"D#/E♭", {"4232/L2=3", "4342", "2oo3", "1212", "1323", "1322", "1333", "1313", "2324/R1=3", "3343", "2231/R2=3", "2212", "1341", "1344", "1324"}},
    {"E", {"21oo", "2ooo", "2114", "2323", "o1oo", "oooo", "11oo", "2424", "2o2o", "21o2", "2oo2", "o1o2", "1341/R2=3", "22oo", "o2oo"}},
    {"F", {"3211", "3111", "3221", "o1o1", "1211", "1111", "321o", "o211", "3131", "3213", "3113", "1213", "3o11", "3311", "1311"}},
    {"F#/G♭", {"4322", "4222", "o332", "1212", "2322", "2222", "3322", "1322", "1222", "4324", "21o2", "2324", "4122", "4422", "2422"}},
    {"G", {"ooo3", "o333", "1oo3", "2323", "ooo1", "3333", "---2", "oooo", "o33o", "o2o3", "4224/R2=3", "o2o1", "o233", "oo13", "oo11"}},
    {"G#/A♭", {"1114", "1444", "211o", "o1o1", "1112", "11o2", "1113", "1111", "1441", "1314", "13o4", "1312", "1344", "1124", "1122"}},
};

// Chart 3, open tuning sounding C major, strings 4 to 1 G C E G.
constexpr AuthoredRow<10> kOpenC[] = {
    {"A", {"21o2", "2oo2", "2112", "3133/R1=3", "1113/R1=9", "4311/R1=2", "21oo", "11o2", "ooo2", "2134"}},
    {"A#/B♭", {"3213", "3113", "3223", "31-3", "o213", "o113", "3211", "2213", "1113", "2134/R1=2"}},
    {"B", {"4324", "4224", "4334", "4214", "4321", "1224", "4322", "3324", "2224", "2134/R1=3"}},
    {"C", {"oooo", "3113/R1=3", "1oo1", "4214/R1=2", "---2", "1224/R1=2", "ooo3", "ooo4", "1113/R1=3", "21o4/R1=2"}},
    {"C#/D♭", {"1111", "11o1", "2112", "o1oo", "1113", "1224/R1=3", "1114", "2213/R1=4", "1113/R1=4", "2134/R1=5"}},
    {"D", {"2222", "2212", "3223", "1211", "2224", "2214", "1114/R1=2", "2213/R1=5", "1113/R1=5", "2134/R1=6"}},
    {"D#/E♭", {"3333", "o4o4", "4334", "2322", "1113/R1=3", "2214/R1=2", "1114/R1=3", "2213/R1=6", "1113/R1=6", "2134/R1=7"}},
    {"E", {"4444", "4434", "1oo1", "o4o3", "2224/R1=3", "o1o4", "1114/R1=4", "13o4", "(o4)2o-", "2134/R1=8"}},
    {"F", {"2o12", "1o11", "2112", "1211/R1=4", "1113/R1=5", "2214/R1=4", "1114/R1=5", "2213/R1=8", "1113/R1=8", "o312"}},
    {"F#/G♭", {"3123", "2122", "3223", "2o22", "1113/R1=6", "2214/R1=5", "1114/R1=6", "2213/R1=9", "1113/R1=9", "3421"}},
    {"G", {"o234", "o233", "o334", "o133", "42oo", "32oo", "o214", "o224", "(o3)21-", "1423/R1=2"}},
    {"G#/A♭", {"3123/R1=3", "4344", "1oo1", "4244", "1113/R1=8", "4311", "1114/R1=8", "3113/R1=3", "4321", "1o23"}},
};

// Chart 4, baritone-range open tuning sounding G major, strings 4 to 1 D G B D.
constexpr AuthoredRow<10> kOpenG[] = {
    {"A", {"2222", "2212", "3223", "1211", "2224", "2214", "1114/R1=2", "2213/R1=5", "1113/R1=5", "2134/R1=6"}},
    {"A#/B♭", {"3333", "o4o4", "4334", "2322", "1113/R1=3", "2214/R1=2", "1114/R1=3", "2213/R1=6", "1113/R1=6", "2134/R1=7"}},
    {"B", {"4444", "4434", "1oo1", "o4o3", "2224/R1=3", "o1o4", "1114/R1=4", "13o4", "42oo", "2134/R1=8"}},
    {"C", {"2o12", "1o11", "2112", "1211", "1113/R1=5", "2214/R1=4", "1114/R1=5", "2213/R1=8", "1113/R1=8", "o312"}},
    {"C#/D♭", {"3123", "2122", "3223", "2o22", "1113/R1=6", "2214/R1=5", "1114/R1=6", "2213/R1=9", "1113/R1=9", "3421"}},
    {"D", {"o234", "-233", "o334", "o133", "42oo", "32oo", "o214", "o224", "(o4)32-", "1423/R1=2"}},
    {"D#/E♭", {"3123/R1=3", "4344", "1oo1", "4244", "1113/R1=8", "4311", "1114/R1=8", "3113/R1=3", "4321", "1o23"}},
    {"E", {"21o2", "2oo2", "2112", "3133/R1=3", "1(13)1-/R1=9", "4(13)1-/R1=2", "21oo", "11o2", "ooo2", "2134"}},
    {"F", {"3213", "3113", "3223", "31o3", "o213", "o113", "3211", "2213", "1113", "2134/R1=2"}},
    {"F#/G♭", {"4324", "4224", "4334", "4214", "4321", "1224", "4322", "3324", "2224", "2134/R1=3"}},
    {"G", {"oooo", "3113/R1=3", "1oo1", "4214/R1=2", "ooo2", "1224/R1=2", "ooo3", "ooo4", "1113/R1=3", "21o4/R1=2"}},
    {"G#/A♭", {"1111", "11o1", "2112", "o1oo", "1113", "1224/R1=3", "1114", "2213/R1=4", "1113/R1=4", "2134/R1=5"}},
};
// clang-format on

template <size_t N>
void addChart(std::vector<ChordShapeRecord>& out, int64_t chart, std::span<const AuthoredRow<N>> rows) {
    const auto variants = ChordCatalogue::variantKeys(chart);
    for (const AuthoredRow<N>& row : rows) {
        for (size_t i = 0; i < N; ++i) {
            std::string error;
            auto shape = parseShapeNotation(row.cells[i], &error);
            if (!shape) {
                // The table is part of the program: a bad cell is a build mistake.
                std::fprintf(stderr, "chord table: chart %lld %s %s: %s\n", static_cast<long long>(chart),
                             std::string(row.root).c_str(), std::string(variants[i]).c_str(), error.c_str());
                std::abort();
            }
            out.push_back(ChordShapeRecord{chart, row.root, variants[i], *shape});
        }
    }
}

std::vector<ChordShapeRecord> buildRecords() {
    std::vector<ChordShapeRecord> out;
    out.reserve(600);
    addChart<15>(out, 1, kStandard);
    addChart<15>(out, 2, kBaritone);
    addChart<10>(out, 3, kOpenC);
    addChart<10>(out, 4, kOpenG);
    return out;
}

using Key = std::tuple<int64_t, std::string_view, std::string_view>;

const std::map<Key, const ChordShape*>& index() {
    static const std::map<Key, const ChordShape*> byKey = [] {
        std::map<Key, const ChordShape*> m;
        for (const ChordShapeRecord& r : ChordShapeTable::records())
            m.emplace(Key{r.chart, r.root, r.variant}, &r.shape);
        return m;
    }();
    return byKey;
}

} // namespace

const std::vector<ChordShapeRecord>& ChordShapeTable::records() {
    static const std::vector<ChordShapeRecord> all = buildRecords();
    return all;
}

const ChordShape* ChordShapeTable::find(int64_t chart, std::string_view root, std::string_view variant) {
    const auto& m = index();
    const auto it = m.find(Key{chart, root, variant});
    return it == m.end() ? nullptr : it->second;
}

} // namespace uke
