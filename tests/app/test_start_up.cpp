#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

#include "app/AppDelegate.h"
#include "base/Format.h"
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
        AppDelegate delegate(
            platform.services(), rating,
            [this](const std::string& s) {
                built.push_back(s);
                logsBeforeBuild = platform.log.lines.size();
            },
            "42");
        EXPECT_TRUE(delegate.didFinishLaunchingWithOptions());
        EXPECT_TRUE(delegate.prefersStatusBarHidden());
        return built;
    }
    VirtualPlatform platform;
    RatingPrompt rating{platform.services()};
    std::vector<std::string> built;
    size_t logsBeforeBuild = 0;
};

TEST(StartUp, WalksTheTableLoggingAfterEachGroupAndBuildsTheWindowInPlace) {
    // Heights in the order they are tested, "|" where the height is logged: uneven
    // groups, none between 1133 and 1180, none after the last pads.
    const struct {
        Idiom idiom;
        std::string_view walk;
        const char* line;
    } idioms[] = {
        {Idiom::Phone, "480 568 667 736 | 812 | 844 852 874 | 896 | 912 926 | 932 956 |", "iPhone has a height of: %f"},
        {Idiom::Pad, "1024 | 1080 | 1112 | 1133 1180 1194 1210 | 1366 1376", "iPad has a height of: %f"},
    };
    for (const auto& [idiom, walk, line] : idioms) {
        const auto lines = static_cast<size_t>(std::ranges::count(walk, '|'));
        std::vector<double> heights;
        size_t logged = 0;
        std::istringstream in{std::string(walk)};
        for (std::string token; in >> token;) {
            if (token == "|") {
                ++logged;
                continue;
            }
            const double h = std::stod(token);
            heights.push_back(h);
            StartUp s(idiom, h);
            EXPECT_EQ(s.run(), std::vector<std::string>{*storyboardFor(idiom, h)}) << h;
            EXPECT_EQ(s.logsBeforeBuild, logged) << h;
            EXPECT_EQ(s.platform.log.lines, std::vector<std::string>(lines, format(line, h))) << h;
        }
        EXPECT_EQ(heights, layoutHeights(idiom));
    }
}

TEST(StartUp, ClassesOfNoTableBuildNoWindowButLogAsTheirIdiomDoes) {
    // A phone of no table: the golden screen outputs (phone-900).
    StartUp pad(Idiom::Pad, 844), other(Idiom::Other, 844);
    EXPECT_TRUE(pad.run().empty());
    EXPECT_EQ(pad.platform.log.lines, std::vector<std::string>(4, "iPad has a height of: 844.000000"));
    EXPECT_TRUE(other.run().empty());
    EXPECT_TRUE(other.platform.log.lines.empty());
}

TEST(StartUp, ConfiguresTheRatingPromptBeforeTheWindow) {
    StartUp s(Idiom::Phone, 844);
    s.run();
    EXPECT_EQ(s.rating.appId(), "42");
    EXPECT_EQ(s.rating.daysUntilPrompt(), 2.0);
    EXPECT_EQ(s.rating.usesUntilPrompt(), 2);
    EXPECT_EQ(s.rating.significantEventsUntilPrompt(), -1);
    EXPECT_EQ(s.rating.timeBeforeReminding(), 2.0);
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
    for (const char* bad : {"", "phone", "phone-", "tv-844", "phone-84x", "phone-10", "pad--1"})
        EXPECT_FALSE(DeviceClass::parse(bad)) << bad;
    // A height of no table and its nearest layout: the golden screen outputs (phone-900, phone-700).
    EXPECT_EQ(*storyboardFor(Idiom::Pad, 1080), "Main_iPad_Pro_10_5");
    EXPECT_EQ(*storyboardFor(Idiom::Phone, 852), "Main_iPhone12Pro");
    EXPECT_EQ(*storyboardFor(Idiom::Pad, 1194), "Main_iPad_Pro_11");
}

} // namespace
} // namespace uke
