#include <gtest/gtest.h>

#include "app/AppDelegate.h"
#include "base/LayoutClass.h"
#include "platform/virtual/VirtualPlatform.h"
#include "rating/RatingPrompt.h"

namespace uke {
namespace {

struct StartUp {
    explicit StartUp(Idiom idiom, double height) {
        platform.device.idiomValue = idiom;
        platform.device.height = height;
    }
    std::vector<std::string> run() {
        RatingPrompt rating(platform.services());
        AppDelegate delegate(platform.services(), rating, [this](const std::string& s) { built.push_back(s); }, "42");
        EXPECT_TRUE(delegate.didFinishLaunchingWithOptions());
        EXPECT_TRUE(delegate.prefersStatusBarHidden());
        appId = rating.appId();
        days = rating.daysUntilPrompt();
        uses = rating.usesUntilPrompt();
        events = rating.significantEventsUntilPrompt();
        remind = rating.timeBeforeReminding();
        return built;
    }
    VirtualPlatform platform;
    std::vector<std::string> built;
    std::string appId;
    double days = 0, remind = 0;
    long uses = 0, events = 0;
};

TEST(StartUp, PhoneHeightsPickTheirStoryboardAndLogSixTimes) {
    const std::vector<std::pair<double, std::string>> rows = {
        {480, "Main_iPhone4s"},     {568, "Main_iPhone"},        {667, "Main_iPhone6"},
        {736, "Main_iPhone6Plus"},  {812, "Main_iPhoneX"},       {844, "Main_iPhone12Pro"},
        {852, "Main_iPhone12Pro"},  {874, "Main_iPhone12Pro"},   {896, "Main_iPhoneXSMax"},
        {912, "Main_iPhone12ProMax"}, {926, "Main_iPhone12ProMax"}, {932, "Main_iPhone12ProMax"},
        {956, "Main_iPhone12ProMax"}};
    for (const auto& [height, storyboard] : rows) {
        StartUp s(Idiom::Phone, height);
        EXPECT_EQ(s.run(), std::vector<std::string>{storyboard}) << height;
        EXPECT_EQ(s.platform.log.count(format("iPhone has a height of: %f", height)), 6u) << height;
        EXPECT_EQ(s.platform.log.count(format("iPad has a height of: %f", height)), 0u);
    }
}

TEST(StartUp, UnknownPhoneHeightBuildsNothingButStillLogsSixTimes) {
    StartUp s(Idiom::Phone, 900);
    EXPECT_TRUE(s.run().empty());
    EXPECT_EQ(s.platform.log.count("iPhone has a height of: 900.000000"), 6u);
}

TEST(StartUp, PadSkipsThePhoneTableAndLogsFourTimes) {
    StartUp s(Idiom::Pad, 1194);
    EXPECT_EQ(s.run(), std::vector<std::string>{"Main_iPad_Pro_11"});
    EXPECT_EQ(s.platform.log.count("iPad has a height of: 1194.000000"), 4u);
    EXPECT_EQ(s.platform.log.count("iPhone has a height of: 1194.000000"), 0u);

    // No log line between the 1133 and 1180 tests, nor after the last rows.
    for (double h : {1133.0, 1366.0, 1376.0}) {
        StartUp p(Idiom::Pad, h);
        EXPECT_EQ(p.run().size(), 1u);
        EXPECT_EQ(p.platform.log.count(format("iPad has a height of: %f", h)), 4u);
    }
}

TEST(StartUp, OtherIdiomBuildsNoWindowAndLogsNothing) {
    StartUp s(Idiom::Other, 844);
    EXPECT_TRUE(s.run().empty());
    EXPECT_TRUE(s.platform.log.lines.empty());
}

TEST(StartUp, ConfiguresTheRatingPromptBeforeTheWindow) {
    StartUp s(Idiom::Phone, 844);
    s.run();
    EXPECT_EQ(s.appId, "42");
    EXPECT_EQ(s.days, 2.0);
    EXPECT_EQ(s.uses, 2);
    EXPECT_EQ(s.events, -1);
    EXPECT_EQ(s.remind, 2.0);
}

TEST(DeviceClass, ParsesNamesAndRejectsNonsense) {
    const auto phone = DeviceClass::parse("phone-667");
    ASSERT_TRUE(phone);
    EXPECT_EQ(phone->idiom, Idiom::Phone);
    EXPECT_EQ(phone->height, 667);
    EXPECT_EQ(phone->width, 375);
    const auto pad = DeviceClass::parse("pad-1194");
    ASSERT_TRUE(pad);
    EXPECT_EQ(pad->width, 834);
    EXPECT_EQ(pad->name(), "pad-1194");
    for (const char* bad : {"", "phone", "phone-", "tv-844", "phone-84x", "phone-10", "pad--1"})
        EXPECT_FALSE(DeviceClass::parse(bad)) << bad;

    // A height of no table is accepted, gets a plausible width, and maps to the nearest layout.
    const auto odd = DeviceClass::parse("phone-900");
    ASSERT_TRUE(odd);
    EXPECT_FALSE(storyboardFor(odd->idiom, odd->height));
    EXPECT_EQ(nearestLayoutClass(*odd).height, 896);
    EXPECT_EQ(*storyboardFor(Idiom::Pad, 1080), "Main_iPad_Pro_10_5");
}

TEST(DeviceClass, HighlightVariantsFollowTheExactHeight) {
    EXPECT_EQ(highlightFor(Idiom::Phone, 480)->suffix, "_string.png");
    EXPECT_EQ(highlightFor(Idiom::Phone, 480)->view, HighlightView::TunedString);
    EXPECT_EQ(highlightFor(Idiom::Phone, 568)->suffix, "_string_5.png");
    EXPECT_EQ(highlightFor(Idiom::Phone, 667)->suffix, "_string_6.png");
    EXPECT_EQ(highlightFor(Idiom::Phone, 896)->suffix, "_string_6plus.png");
    EXPECT_EQ(highlightFor(Idiom::Pad, 1024)->suffix, "_string_iPad.png");
    EXPECT_EQ(highlightFor(Idiom::Pad, 1133)->suffix, "_string_iPad_Pro.png");
    EXPECT_FALSE(highlightFor(Idiom::Phone, 900));
    EXPECT_FALSE(highlightFor(Idiom::Pad, 844));
}

} // namespace
} // namespace uke
