#include "RatingFixture.h"

namespace uke::test {
namespace {

using Conditions = RatingFixture;

TEST_F(Conditions, DaysSinceFirstUseAndUsesCountFromTheirThresholds) {
    seedMet(2.0);
    EXPECT_TRUE(rating->ratingConditionsHaveBeenMet()) << "exactly two days";
    store().setDouble(keys::kRatingPromptFirstUseDate, now() - 2.0 * kDay + 1.0);
    EXPECT_FALSE(rating->ratingConditionsHaveBeenMet());
    platform.runLoop.advanceBy(1.0);
    EXPECT_TRUE(rating->ratingConditionsHaveBeenMet());

    seedMet(3.0, 1);
    EXPECT_FALSE(rating->ratingConditionsHaveBeenMet());
    rating->incrementUseCount();
    EXPECT_TRUE(rating->ratingConditionsHaveBeenMet());
}

TEST_F(Conditions, SignificantEventsAtMinusOneNeverBlock) {
    seedMet();
    EXPECT_FALSE(store().hasKey(keys::kRatingPromptSignificantEventCount));
    EXPECT_TRUE(rating->ratingConditionsHaveBeenMet());

    rating->setSignificantEventsUntilPrompt(2);
    EXPECT_FALSE(rating->ratingConditionsHaveBeenMet());
    rating->incrementSignificantEventCount();
    EXPECT_FALSE(rating->ratingConditionsHaveBeenMet());
    rating->incrementSignificantEventCount();
    EXPECT_TRUE(rating->ratingConditionsHaveBeenMet());
}

TEST_F(Conditions, BuiltInDefaultsAreStricterThanStartUpButDebugOverridesThem) {
    RatingPrompt fresh(platform.services());
    seedMet(3.0, 5);
    EXPECT_FALSE(fresh.ratingConditionsHaveBeenMet());
    fresh.setDebug(true);
    EXPECT_TRUE(fresh.ratingConditionsHaveBeenMet());
}

TEST_F(Conditions, RemindLaterWaitsTheReminderTime) {
    seedMet();
    rating->incrementAndRate(true);
    ASSERT_EQ(platform.alerts.presentCount, 1);
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

TEST_F(Appropriate, DeclinedOrRatedVersionsNeverPrompt) {
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
}

TEST_F(Appropriate, OneAlertAtATime) {
    rating->tryToShowPrompt();
    rating->tryToShowPrompt();
    EXPECT_EQ(platform.alerts.presentCount, 1);
    EXPECT_TRUE(rating->alertVisible());
    rating->appWillResignActive();
    EXPECT_EQ(platform.alerts.dismissCount, 1);
    EXPECT_FALSE(rating->alertVisible());
    rating->tryToShowPrompt();
    EXPECT_EQ(platform.alerts.presentCount, 2);
}

using Network = RatingFixture;

TEST_F(Network, UnreadableFlagsLogAndAnswerNo) {
    platform.network.flags.reset();
    EXPECT_FALSE(rating->connectedToNetwork());
    EXPECT_EQ(platform.log.lines, std::vector<std::string>{"Error. Could not recover network reachability flags"});
    EXPECT_TRUE(platform.network.fetched.empty());
    rating->tryToShowPrompt();
    EXPECT_EQ(platform.alerts.presentCount, 0);
}

TEST_F(Network, FlagsAndTheFetchDecide) {
    struct Case {
        NetworkProbe::Flags flags;
        bool suspended;
        bool connected;
    } cases[] = {
        {{true, false, false}, false, true}, {{true, true, false}, false, false}, {{false, false, false}, false, false},
        {{false, false, true}, false, true}, {{true, true, true}, false, true},   {{true, false, false}, true, false},
    };
    for (const auto& c : cases) {
        platform.network.flags = c.flags;
        platform.network.suspended = c.suspended;
        EXPECT_EQ(rating->connectedToNetwork(), c.connected)
            << c.flags.reachable << c.flags.connectionRequired << c.flags.transientConnection << c.suspended;
    }
    ASSERT_EQ(platform.network.fetched.size(), std::size(cases)) << "fetched whatever the flags say";
    EXPECT_EQ(platform.network.fetched.front(), UKE_PROBE_URL);
}

using Alert = RatingFixture;

TEST_F(Alert, TextsAndButtons) {
    rating->forceShowPrompt(true);
    EXPECT_EQ(platform.alerts.title, "Rate Ukulele Tuner");
    EXPECT_EQ(platform.alerts.message,
              "If you enjoy using Ukulele Tuner, would you mind taking a moment to rate it? It won't take more than a "
              "minute. Thanks for your support!");
    EXPECT_EQ(platform.alerts.buttons,
              (std::vector<std::string>{"Rate Ukulele Tuner", "Remind me later", "No, Thanks"}));

    platform.alerts.press(2);
    rating->forceShowPrompt(false);
    EXPECT_EQ(platform.alerts.buttons, (std::vector<std::string>{"Rate Ukulele Tuner", "No, Thanks"}));
}

TEST_F(Alert, TextsComeFromTheTableThenTheNameChain) {
    platform.strings.set("Rate %@", "Valorar %@", RatingPrompt::kStringTable);
    platform.strings.set("No, Thanks", "", RatingPrompt::kStringTable); // empty: the key stands in
    platform.strings.set("CFBundleDisplayName", "Afinador", RatingPrompt::kStringTable);
    platform.strings.set("Remind me later", "Elsewhere"); // another table: not used
    EXPECT_EQ(rating->alertTitle(), "Valorar Afinador");
    EXPECT_EQ(rating->alertRateTitle(), "Valorar Afinador");
    EXPECT_EQ(rating->alertCancelTitle(), "No, Thanks");
    EXPECT_EQ(rating->alertRateLaterTitle(), "Remind me later");

    platform.strings.entries.clear();
    rating->setBundle({UKE_VERSION, "", "Uke"});
    EXPECT_EQ(rating->appName(), "Uke");
    EXPECT_EQ(rating->alertTitle(), "Rate Uke");
}

TEST_F(Alert, CustomTextsAreUsedAsTheyAre) {
    rating->setCustomAlertTitle("Enjoying %@?");
    rating->setCustomAlertMessage("Tell us");
    rating->setCustomAlertCancelButtonTitle("Never");
    rating->setCustomAlertRateButtonTitle("Sure");
    rating->setCustomAlertRateLaterButtonTitle("");
    rating->forceShowPrompt(true);
    EXPECT_EQ(platform.alerts.title, "Enjoying %@?");
    EXPECT_EQ(platform.alerts.message, "Tell us");
    EXPECT_EQ(platform.alerts.buttons, (std::vector<std::string>{"Sure", "", "Never"}));
}

TEST_F(Alert, ButtonsDoWhatTheySayAndTellTheDelegate) {
    RecordingDelegate delegate;
    rating->setDelegate(&delegate);

    rating->forceShowPrompt(true);
    EXPECT_EQ(delegate.displayed, 1);
    platform.alerts.press(2);
    EXPECT_TRUE(store().boolForKey(keys::kRatingPromptDeclinedToRate));
    EXPECT_EQ(delegate.declined, 1);
    EXPECT_FALSE(rating->alertVisible());

    rating->forceShowPrompt(true);
    platform.alerts.press(1);
    EXPECT_EQ(delegate.remindLater, 1);

    rating->forceShowPrompt(false);
    platform.alerts.press(0);
    EXPECT_TRUE(store().boolForKey(keys::kRatingPromptRatedCurrentVersion));
    EXPECT_EQ(platform.urls.opened.size(), 1u);
    EXPECT_EQ(delegate.rated, 1);
    EXPECT_FALSE(rating->alertVisible());

    // Without the later button, the second button is cancel.
    store().wipeDomain();
    rating->forceShowPrompt(false);
    platform.alerts.press(1);
    EXPECT_TRUE(store().boolForKey(keys::kRatingPromptDeclinedToRate));
    EXPECT_EQ(delegate.declined, 2);
    EXPECT_EQ(delegate.displayed, 4);
    EXPECT_EQ(delegate.asked, 4);
}

TEST_F(Alert, TheDelegateCanHoldItBack) {
    RecordingDelegate delegate;
    delegate.allow = false;
    rating->setDelegate(&delegate);
    platform.storeReview.hasReviewRequest = true;
    rating->forceShowPrompt(true);
    EXPECT_EQ(platform.alerts.presentCount, 0);
    EXPECT_EQ(platform.storeReview.reviewRequests, 0);
    EXPECT_EQ(delegate.displayed, 0);
}

using Store = RatingFixture;

TEST_F(Store, ThePlatformReviewRequestTakesPrecedence) {
    platform.storeReview.hasReviewRequest = true;
    platform.storeReview.hasStoreSheet = true;
    rating->tryToShowPrompt();
    EXPECT_EQ(platform.storeReview.reviewRequests, 1);
    EXPECT_EQ(platform.alerts.presentCount, 0) << "the app's own alert is never shown";
    EXPECT_TRUE(store().boolForKey(keys::kRatingPromptRatedCurrentVersion));
    EXPECT_TRUE(platform.urls.opened.empty());
    EXPECT_TRUE(platform.storeReview.sheetsFor.empty());

    rating->tryToShowPrompt();
    EXPECT_EQ(platform.storeReview.reviewRequests, 1) << "this version is rated";
}

TEST_F(Store, TheSheetOnlyWhenNotOpeningTheStore) {
    platform.storeReview.hasStoreSheet = true;
    rating->rateApp();
    EXPECT_TRUE(platform.storeReview.sheetsFor.empty());
    EXPECT_EQ(platform.urls.opened.size(), 1u);

    rating->setOpenInAppStore(false);
    rating->rateApp();
    EXPECT_EQ(platform.storeReview.sheetsFor, std::vector<std::string>{"123456"});
    EXPECT_EQ(platform.urls.opened.size(), 1u);

    platform.storeReview.hasStoreSheet = false;
    rating->rateApp();
    EXPECT_EQ(platform.urls.opened.size(), 2u);
}

TEST_F(Store, TemplatesBySystemVersion) {
    const std::string reviews = "itms-apps://" UKE_STORE_HOST "/WebObjects/MZStore.woa/wa/viewContentsUserReviews";
    const std::string before7 = reviews + "?type=Purple+Software&id=123456";
    const std::string on7 = "itms-apps://" UKE_STORE_HOST "/app/id123456";
    const std::string from8 =
        reviews + "?id=123456&onlyLatestVersion=true&pageNumber=0&sortOrdering=1&type=Purple+Software";
    const std::pair<const char*, std::string> cases[] = {
        {"6.1.3", before7}, {"6.9", before7}, {"7.0", on7},      {"7.1.2", on7},
        {"8.0", from8},     {"17.4", from8},  {"junk", before7},
    };
    for (const auto& [version, url] : cases) {
        platform.device.version = version;
        platform.urls.opened.clear();
        rating->rateApp();
        ASSERT_EQ(platform.urls.opened.size(), 1u) << version;
        EXPECT_EQ(platform.urls.opened.front(), url) << version;
        // Opening in the store is the default only from system seven on.
        EXPECT_EQ(RatingPrompt(platform.services()).openInAppStore(), url != before7) << version;
    }
}

} // namespace
} // namespace uke::test
