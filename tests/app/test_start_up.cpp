// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <tuple>

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
        AppDelegate delegate(
            platform.services(), rating, [this](const std::string& s) { built.push_back(s); }, "42");
        EXPECT_TRUE(delegate.didFinishLaunchingWithOptions());
        EXPECT_TRUE(delegate.prefersStatusBarHidden());
        return built;
    }
    VirtualPlatform platform;
    RatingPrompt rating{platform.services()};
    std::vector<std::string> built;
};

// The walk down the table, its uneven groups' log lines and the window built in
// their midst, are in the golden screen outputs (phone-844, pad-1024, pad-1194).
TEST(StartUp, ClassesOfNoTableBuildNoWindowButLogAsTheirIdiomDoes) {
    // A phone of no table: the golden screen outputs (phone-900).
    StartUp pad(Idiom::Pad, 844), other(Idiom::Other, 844);
    EXPECT_TRUE(pad.run().empty());
    EXPECT_EQ(pad.platform.log.lines, std::vector<std::string>(4, "iPad has a height of: 844.000000"));
    EXPECT_TRUE(other.run().empty());
    EXPECT_TRUE(other.platform.log.lines.empty());
}

// Heights of no table and their nearest layouts: the golden screen outputs (phone-900, phone-700).
TEST(DeviceClass, ParsesNamesAndRejectsNonsense) {
    const auto phone = DeviceClass::parse("phone-667"), pad = DeviceClass::parse("pad-1194");
    ASSERT_TRUE(phone && pad);
    EXPECT_EQ(std::tuple(phone->idiom, phone->height, phone->width), std::tuple(Idiom::Phone, 667.0, 375.0));
    EXPECT_EQ(std::tuple(pad->idiom, pad->height, pad->width), std::tuple(Idiom::Pad, 1194.0, 834.0));
    for (const char* bad : {"", "phone", "phone-", "tv-844", "phone-84x", "phone-10", "pad--1"})
        EXPECT_FALSE(DeviceClass::parse(bad)) << bad;
}

} // namespace
} // namespace uke
