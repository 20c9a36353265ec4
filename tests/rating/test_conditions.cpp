// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#include <cmath>
#include <limits>

#include "RatingFixture.h"
#include "base/SettingsKeys.h"
#include "support/TunerFixture.h"

namespace uke::test {
namespace {

// Records every delegate call; can refuse the alert.
struct RecordingDelegate : RatingPromptDelegate {
    bool ratingPromptShouldDisplayAlert(RatingPrompt&) override {
        ++asked;
        return allow;
    }
    void ratingPromptDidDisplayAlert(RatingPrompt&) override { ++displayed; }
    void ratingPromptDidDeclineToRate(RatingPrompt&) override { ++declined; }
    void ratingPromptDidOptToRate(RatingPrompt&) override { ++rated; }
    void ratingPromptDidOptToRemindLater(RatingPrompt&) override { ++remindLater; }
    bool allow = true;
    int asked = 0, displayed = 0, declined = 0, rated = 0, remindLater = 0;
};

using Conditions = RatingFixture;

TEST_F(Conditions, DaysUsesAndEventsCountFromTheirThresholds) {
    seedMet(2.0);
    EXPECT_TRUE(met()) << "exactly two days";
    store().setDouble(keys::kRatingPromptFirstUseDate, now() - 2.0 * kDay + 1.0);
    EXPECT_FALSE(met());
    platform.runLoop.advanceBy(1.0);
    EXPECT_TRUE(met());

    seedMet(3.0, 1);
    EXPECT_FALSE(met());
    rating->incrementUseCount();
    EXPECT_TRUE(met());
    EXPECT_FALSE(store().hasKey(keys::kRatingPromptSignificantEventCount)) << "-1: events never block";

    rating->setSignificantEventsUntilPrompt(2);
    EXPECT_FALSE(met());
    rating->incrementSignificantEventCount();
    EXPECT_FALSE(met());
    rating->incrementSignificantEventCount();
    EXPECT_TRUE(met());

    // The built-in defaults are stricter than start-up's, but debug overrides them.
    RatingPrompt fresh(platform.services());
    EXPECT_FALSE(fresh.ratingConditionsHaveBeenMet());
    fresh.setDebug(true);
    EXPECT_TRUE(fresh.ratingConditionsHaveBeenMet());

    // "Remind me later" waits the reminder time.
    seedMet();
    rating->incrementAndRate(true);
    platform.alerts.press(1); // "Remind me later"
    EXPECT_DOUBLE_EQ(store().doubleForKey(keys::kRatingPromptReminderRequestDate), now());
    platform.runLoop.shiftEpoch(2.0 * kDay - 60.0);
    rating->incrementAndRate(true);
    EXPECT_EQ(platform.alerts.presentCount, 1);
    platform.runLoop.shiftEpoch(60.0);
    rating->incrementAndRate(true);
    EXPECT_EQ(platform.alerts.presentCount, 2);
}

using Appropriate = RatingFixture;

TEST_F(Appropriate, DeclinedOrRatedVersionsNeverPromptAndOneAlertShowsAtATime) {
    for (const char* key : {keys::kRatingPromptDeclinedToRate, keys::kRatingPromptRatedCurrentVersion}) {
        store().wipeDomain();
        seedMet(300.0, 500);
        store().setBool(key, true);
        rating->incrementAndRate(true);
        rating->tryToShowPrompt();
        rating->showPrompt();
        EXPECT_EQ(platform.alerts.presentCount, 0) << key;
        EXPECT_FALSE(rating->ratingAlertIsAppropriate()) << key;
    }
    rating->forceShowPrompt(true);
    EXPECT_EQ(platform.alerts.presentCount, 1) << "forcing skips the checks";

    // One alert at a time; going inactive dismisses it.
    store().wipeDomain();
    rating->tryToShowPrompt();
    EXPECT_EQ(platform.alerts.presentCount, 1);
    rating->appWillResignActive();
    EXPECT_EQ(platform.alerts.dismissCount, 1);
    EXPECT_FALSE(rating->alertVisible());
    rating->tryToShowPrompt();
    EXPECT_EQ(platform.alerts.presentCount, 2);
}

using Network = RatingFixture;

// Which flags mean a connection is the probe's table; flags that cannot be read are
// said once and answer no, with no fetch.
TEST_F(Network, UnreadableFlagsLogAndAnswerNo) {
    platform.network.flags.reset();
    EXPECT_FALSE(rating->connectedToNetwork());
    EXPECT_EQ(platform.log.lines, std::vector<std::string>{"Error. Could not recover network reachability flags"});
    EXPECT_TRUE(platform.network.fetched.empty());
    rating->tryToShowPrompt();
    EXPECT_EQ(platform.alerts.presentCount, 0);
    // Readable flags wake the connection with one fetch that gives up after 20 s.
    platform.network.flags = NetworkProbe::Flags{true, false, false};
    EXPECT_TRUE(rating->connectedToNetwork());
    EXPECT_EQ(platform.network.fetched, std::vector<std::string>{UKE_PROBE_URL});
    EXPECT_EQ(platform.network.lastTimeout, 20.0);
}

// A date that cannot have happened (a damaged or hand-edited file) counts as unset:
// it neither holds the prompt back for ever nor stops the next use from dating it.
TEST_F(Conditions, DatesThatCannotHaveHappenedReadAsUnset) {
    for (const double date : {1e30, std::numeric_limits<double>::infinity(), -1.0, std::nan("")}) {
        SCOPED_TRACE(date);
        seedMet();
        store().setDouble(keys::kRatingPromptReminderRequestDate, date);
        EXPECT_TRUE(met());
        store().setDouble(keys::kRatingPromptFirstUseDate, date);
        rating->incrementUseCount();
        EXPECT_EQ(store().doubleForKey(keys::kRatingPromptFirstUseDate), now());
    }
}

using Alert = RatingFixture;

// The alert's texts: the rating alert's screen test.
TEST_F(Alert, ButtonsDoWhatTheySayAndTellTheDelegateWhichCanHoldTheAlertBack) {
    RecordingDelegate delegate;
    rating->setDelegate(&delegate);
    // Without the later button, the second button is cancel.
    const struct {
        bool later;
        int button;
        const char* stored;
        int RecordingDelegate::*told;
    } cases[] = {{true, 0, keys::kRatingPromptRatedCurrentVersion, &RecordingDelegate::rated},
                 {true, 1, keys::kRatingPromptReminderRequestDate, &RecordingDelegate::remindLater},
                 {true, 2, keys::kRatingPromptDeclinedToRate, &RecordingDelegate::declined},
                 {false, 0, keys::kRatingPromptRatedCurrentVersion, &RecordingDelegate::rated},
                 {false, 1, keys::kRatingPromptDeclinedToRate, &RecordingDelegate::declined}};
    for (const auto& c : cases) {
        store().wipeDomain();
        const int before = delegate.*c.told;
        rating->forceShowPrompt(c.later);
        platform.alerts.press(c.button);
        EXPECT_EQ(delegate.*c.told, before + 1) << c.later << c.button;
        EXPECT_TRUE(store().hasKey(c.stored)) << c.later << c.button;
        EXPECT_FALSE(rating->alertVisible());
    }
    EXPECT_EQ(platform.urls.opened.size(), 2u);
    EXPECT_EQ(delegate.asked + delegate.displayed, 10);

    delegate.allow = false;
    platform.storeReview.hasReviewRequest = true;
    rating->forceShowPrompt(true);
    EXPECT_EQ(platform.alerts.presentCount, 5);
    EXPECT_EQ(platform.storeReview.reviewRequests, 0);
    EXPECT_EQ(delegate.displayed, 5);
}

TEST_F(Alert, ThePlatformRequestComesFirstThenTheStoreOrElseItsSheet) {
    platform.storeReview.hasReviewRequest = true;
    platform.storeReview.hasStoreSheet = true;
    rating->tryToShowPrompt();
    EXPECT_EQ(platform.storeReview.reviewRequests, 1);
    EXPECT_EQ(platform.alerts.presentCount, 0) << "the app's own alert is never shown";
    EXPECT_TRUE(store().boolForKey(keys::kRatingPromptRatedCurrentVersion));
    EXPECT_TRUE(platform.urls.opened.empty() && platform.storeReview.sheetsFor.empty());
    rating->tryToShowPrompt();
    EXPECT_EQ(platform.storeReview.reviewRequests, 1) << "this version is rated";

    platform.storeReview.hasReviewRequest = false;
    rating->rateApp();
    EXPECT_EQ(platform.urls.opened.size(), 1u);
    rating->setOpenInAppStore(false);
    rating->rateApp();
    EXPECT_EQ(platform.storeReview.sheetsFor, std::vector<std::string>{"123456"});
    EXPECT_EQ(platform.urls.opened.size(), 1u);
    platform.storeReview.hasStoreSheet = false;
    rating->rateApp();
    EXPECT_EQ(platform.urls.opened.size(), 2u);

    // The store address by system version, written out: the oldest page is on a
    // host of its own.
    const std::string before7 = "itms-apps://reviews.itunes.apple.com/WebObjects/MZStore.woa/wa/"
                                "viewContentsUserReviews?type=Purple+Software&id=123456";
    const std::string on7 = "itms-apps://itunes.apple.com/app/id123456";
    const std::string from8 = "itms-apps://itunes.apple.com/WebObjects/MZStore.woa/wa/viewContentsUserReviews"
                              "?id=123456&onlyLatestVersion=true&pageNumber=0&sortOrdering=1&type=Purple+Software";
    const std::pair<const char*, std::string> cases[] = {
        {"6.1.3", before7}, {"6.9", before7}, {"7.0", on7},      {"7.1.2", on7},
        {"8.0", from8},     {"17.4", from8},  {"junk", before7},
    };
    for (const auto& [version, url] : cases) {
        platform.device.version = version;
        platform.urls.opened.clear();
        rating->rateApp();
        EXPECT_EQ(platform.urls.opened, std::vector<std::string>{url}) << version;
        // Opening in the store is the default only from system seven on.
        EXPECT_EQ(RatingPrompt(platform.services()).openInAppStore(), url != before7) << version;
    }
}

// The tuner screen asks up to four times in a row; only the first can show (the
// platform's own request, asked once per version, is the alert tests').
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
}

} // namespace
} // namespace uke::test
