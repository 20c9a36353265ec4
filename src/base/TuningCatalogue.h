// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <array>
#include <cstdint>
#include <string_view>
#include <vector>

#include "base/Pitch.h"

namespace uke {

// One test of the tick: the pitch whose window is tried, the label shown while it
// is in tune, the indication code (a string number, or 14 for strings 1 and 4) and
// which string's confirmation is called.
struct MatchRule {
    Pitch pitch;
    std::string_view label;
    int indication;
    int slot;
};

struct Tuning {
    int number;
    std::string_view titleKey;
    std::array<Pitch, 4> strings;  // string 1 first
    std::string_view phoneIcon;
    std::string_view padIcon;
    std::vector<MatchRule> rules;  // tried in order
};

class TuningCatalogue {
public:
    static constexpr int64_t kFirst = 1;
    static constexpr int64_t kLast = 11;
    static bool contains(int64_t n) { return n >= kFirst && n <= kLast; }
    // Row n (1..11); n must be in range.
    static const Tuning& tuning(int64_t n);
};

} // namespace uke
