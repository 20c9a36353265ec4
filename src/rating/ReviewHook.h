// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/SettingsStore.h"

namespace uke {

class RatingPrompt;

// The tuner screen's reason to ask for a rating: the number of runs so far.
class ReviewHook {
public:
    ReviewHook(SettingsStore& settings, RatingPrompt& rating) : settings_(settings), rating_(rating) {}

    void promptToReview();

private:
    SettingsStore& settings_;
    RatingPrompt& rating_;
};

} // namespace uke
