// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <cstdint>
#include <string_view>
#include <vector>

#include "chords/ChordShape.h"

namespace uke {

// One authored entry: a chart, a root key, a chord-type key and its fingering.
struct ChordShapeRecord {
    int64_t chart;
    std::string_view root;
    std::string_view variant;
    ChordShape shape;
};

// Every authored fingering of the four charts: 180 each for charts 1 and 2 (12
// roots x 15 types), 120 each for charts 3 and 4 (12 roots x 10 types). Each
// chart keeps its own entries even where they repeat another chart's: nothing is
// transposed or derived.
class ChordShapeTable {
public:
    // The shape for exactly (chart, root key, chord-type key), or null. There is no
    // fallback to another chart, root or type.
    static const ChordShape* find(int64_t chart, std::string_view root, std::string_view variant);
    // All entries, chart by chart, roots in key order, types in picker order.
    static const std::vector<ChordShapeRecord>& records();
};

} // namespace uke
