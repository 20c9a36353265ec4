// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <optional>
#include <string_view>
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
            platform.services(), rating,
            [this](const std::string& s) { built.push_back(s + " after " + std::to_string(platform.log.lines.size())); },
            "42");
        EXPECT_TRUE(delegate.didFinishLaunchingWithOptions());
        EXPECT_TRUE(delegate.prefersStatusBarHidden());
        return built;
    }
    VirtualPlatform platform;
    RatingPrompt rating{platform.services()};
    std::vector<std::string> built;
};

// Every class with a layout, written out: the window it builds and after how many of
// the walk's log lines (its groups are uneven), its lamp picture and view, its
// picker scale (none: unscaled) and neck picture (none: the layout's own).
struct Row {
    Idiom idiom;
    double height;
    const char* window;
    std::string_view highlight;
    HighlightView view;
    std::optional<double> picker;
    std::optional<std::string_view> neck;
};

TEST(StartUp, EveryClassWithALayoutBuildsItsWindowWithItsPictures) {
    using enum Idiom;
    using enum HighlightView;
    const std::string_view plus = "_string_6plus.png", pro = "_string_iPad_Pro.png", plusNeck = "_iPhone6Plus.png";
    const Row rows[] = {
        {Phone, 480, "Main_iPhone4s after 0", "_string.png", TunedString, 0.75, "_iPhone.png"},
        {Phone, 568, "Main_iPhone after 0", "_string_5.png", TunedString5, 0.75, "_iPhone5.png"},
        {Phone, 667, "Main_iPhone6 after 0", "_string_6.png", TunedString5, 0.75, "_iPhone6.png"},
        {Phone, 736, "Main_iPhone6Plus after 0", plus, TunedString5, 0.75, plusNeck},
        {Phone, 812, "Main_iPhoneX after 1", plus, TunedString5, {}, plusNeck},
        {Phone, 844, "Main_iPhone12Pro after 2", plus, TunedString5, {}, {}},
        {Phone, 852, "Main_iPhone12Pro after 2", plus, TunedString5, {}, {}},
        {Phone, 874, "Main_iPhone12Pro after 2", plus, TunedString5, {}, {}},
        {Phone, 896, "Main_iPhoneXSMax after 3", plus, TunedString5, {}, plusNeck},
        {Phone, 912, "Main_iPhone12ProMax after 4", plus, TunedString5, {}, {}},
        {Phone, 926, "Main_iPhone12ProMax after 4", plus, TunedString5, {}, {}},
        {Phone, 932, "Main_iPhone12ProMax after 5", plus, TunedString5, {}, {}},
        {Phone, 956, "Main_iPhone12ProMax after 5", plus, TunedString5, {}, {}},
        {Pad, 1024, "Main_iPad after 0", "_string_iPad.png", TunedStringiPad, 0.9, "_iPad.png"},
        {Pad, 1080, "Main_iPad_Pro_10_5 after 1", pro, TunedStringiPad, 0.9, "_iPad.png"},
        {Pad, 1112, "Main_iPad_Pro_10_5 after 2", pro, TunedStringiPad, 0.9, "_iPad.png"},
        {Pad, 1133, "Main_iPad_Mini6 after 3", pro, TunedStringiPad, 0.9, "_iPad.png"},
        {Pad, 1180, "Main_iPad_Pro_11 after 3", pro, TunedStringiPad, 0.9, "_iPad.png"},
        {Pad, 1194, "Main_iPad_Pro_11 after 3", pro, TunedStringiPad, 0.9, "_iPad.png"},
        {Pad, 1210, "Main_iPad_Pro_11 after 3", pro, TunedStringiPad, 0.9, "_iPad.png"},
        {Pad, 1366, "Main_iPad_Pro after 4", pro, TunedStringiPad, 0.9, "_iPad.png"},
        {Pad, 1376, "Main_iPad_Pro after 4", pro, TunedStringiPad, 0.9, "_iPad.png"},
    };
    EXPECT_EQ(deviceClasses().size(), std::size(rows)) << "a class with a layout is missing here";
    for (const Row& r : rows) {
        SCOPED_TRACE(r.height);
        StartUp start(r.idiom, r.height);
        EXPECT_EQ(start.run(), std::vector<std::string>{r.window});
        EXPECT_EQ(start.platform.log.lines.size(), r.idiom == Phone ? 6u : 4u);
        const auto lamp = highlightFor(r.idiom, r.height);
        ASSERT_TRUE(lamp);
        EXPECT_EQ(std::pair(lamp->suffix, lamp->view), std::pair(r.highlight, r.view));
        EXPECT_EQ(pickerScaleFor(r.idiom, r.height), r.picker);
        EXPECT_EQ(fretboardSuffixFor(r.idiom, r.height), r.neck);
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
