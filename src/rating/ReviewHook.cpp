// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#include "rating/ReviewHook.h"

#include "base/SettingsKeys.h"
#include "base/SharedState.h"
#include "rating/RatingPrompt.h"

namespace uke {

void ReviewHook::promptToReview() {
    if (demoModeEnabled)
        return;
    const long runs = settings_.integerForKey(keys::numberOfRuns);
    // Up to four asks in a row; the prompt itself decides whether any is due.
    if (runs >= 3) {
        rating_.tryToShowPrompt();
        if (runs >= 5) {
            rating_.tryToShowPrompt();
            if (runs >= 7) {
                rating_.tryToShowPrompt();
                if (runs >= 9)
                    rating_.tryToShowPrompt();
            }
        }
    }
}

} // namespace uke
