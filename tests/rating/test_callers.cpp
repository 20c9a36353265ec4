#include "support/TunerFixture.h"

#include "base/SettingsKeys.h"

namespace uke::test {
namespace {

// The tuner screen asks up to four times in a row; only the first can show.
class TunerPrompt : public TunerFixture {
protected:
    // Attempts, seen as network checks: every attempt makes one. The alert is then
    // put off ("Remind me later"), which does not hold back the next attempts.
    size_t attemptsAt(long runs) {
        platform.network.fetched.clear();
        platform.alerts.presentCount = 0;
        platform.store->setInteger(keys::numberOfRuns, runs);
        controller->promptToReview();
        if (platform.alerts.visible)
            platform.alerts.press(1);
        return platform.network.fetched.size();
    }
};

TEST_F(TunerPrompt, AttemptsGrowWithTheRunCount) {
    launch();
    const std::pair<long, size_t> cases[] = {{1, 0}, {2, 0}, {3, 1}, {4, 1}, {5, 2},
                                             {6, 2}, {7, 3}, {8, 3}, {9, 4}, {40, 4}};
    for (const auto& [runs, attempts] : cases) {
        const size_t expected = demoModeEnabled ? 0 : attempts;
        EXPECT_EQ(attemptsAt(runs), expected) << runs << " runs";
        EXPECT_EQ(platform.alerts.presentCount, expected > 0 ? 1 : 0) << runs << " runs";
    }
    // With the platform request, nine runs ask it once and never show the alert.
    platform.storeReview.hasReviewRequest = true;
    EXPECT_EQ(attemptsAt(9), demoModeEnabled ? 0u : 4u);
    EXPECT_EQ(platform.storeReview.reviewRequests, demoModeEnabled ? 0 : 1);
    EXPECT_EQ(platform.alerts.presentCount, 0);
}

} // namespace
} // namespace uke::test
