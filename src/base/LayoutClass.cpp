// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/LayoutClass.h"

#include <charconv>
#include <cmath>

namespace uke {

namespace {

using enum Idiom;
using enum HighlightView;

constexpr std::string_view kPlus = "_string_6plus.png";
constexpr std::string_view kPadPro = "_string_iPad_Pro.png";
constexpr std::string_view kPlusNeck = "_iPhone6Plus.png";
// Every pad, even one of no table, has the same picker scale and neck picture.
constexpr double kPadPicker = 0.9;
constexpr std::string_view kPadNeck = "_iPad.png";

// Only the four oldest phone sizes have a smaller picker, and only the original
// phone families have neck pictures of their own: 812 and 896 use the 6 Plus one
// while 844, 926 and the other newer heights keep the layout's standard picture.
// Both gaps are intended.
constexpr DeviceClassRow kRows[] = {
    // idiom, height, width, storyboard, log after, highlight, its view, picker scale, neck
    {Phone, 480, 320, "Main_iPhone4s", false, "_string.png", TunedString, 0.75, "_iPhone.png"},
    {Phone, 568, 320, "Main_iPhone", false, "_string_5.png", TunedString5, 0.75, "_iPhone5.png"},
    {Phone, 667, 375, "Main_iPhone6", false, "_string_6.png", TunedString5, 0.75, "_iPhone6.png"},
    {Phone, 736, 414, "Main_iPhone6Plus", true, kPlus, TunedString5, 0.75, kPlusNeck},
    {Phone, 812, 375, "Main_iPhoneX", true, kPlus, TunedString5, {}, kPlusNeck},
    {Phone, 844, 390, "Main_iPhone12Pro", false, kPlus, TunedString5, {}, {}},
    {Phone, 852, 393, "Main_iPhone12Pro", false, kPlus, TunedString5, {}, {}},
    {Phone, 874, 402, "Main_iPhone12Pro", true, kPlus, TunedString5, {}, {}},
    {Phone, 896, 414, "Main_iPhoneXSMax", true, kPlus, TunedString5, {}, kPlusNeck},
    {Phone, 912, 420, "Main_iPhone12ProMax", false, kPlus, TunedString5, {}, {}},
    {Phone, 926, 428, "Main_iPhone12ProMax", true, kPlus, TunedString5, {}, {}},
    {Phone, 932, 430, "Main_iPhone12ProMax", false, kPlus, TunedString5, {}, {}},
    {Phone, 956, 440, "Main_iPhone12ProMax", true, kPlus, TunedString5, {}, {}},
    {Pad, 1024, 768, "Main_iPad", true, "_string_iPad.png", TunedStringiPad, kPadPicker, kPadNeck},
    {Pad, 1080, 810, "Main_iPad_Pro_10_5", true, kPadPro, TunedStringiPad, kPadPicker, kPadNeck},
    {Pad, 1112, 834, "Main_iPad_Pro_10_5", true, kPadPro, TunedStringiPad, kPadPicker, kPadNeck},
    {Pad, 1133, 744, "Main_iPad_Mini6", false, kPadPro, TunedStringiPad, kPadPicker, kPadNeck},
    {Pad, 1180, 820, "Main_iPad_Pro_11", false, kPadPro, TunedStringiPad, kPadPicker, kPadNeck},
    {Pad, 1194, 834, "Main_iPad_Pro_11", false, kPadPro, TunedStringiPad, kPadPicker, kPadNeck},
    {Pad, 1210, 834, "Main_iPad_Pro_11", true, kPadPro, TunedStringiPad, kPadPicker, kPadNeck},
    {Pad, 1366, 1024, "Main_iPad_Pro", false, kPadPro, TunedStringiPad, kPadPicker, kPadNeck},
    {Pad, 1376, 1032, "Main_iPad_Pro", false, kPadPro, TunedStringiPad, kPadPicker, kPadNeck},
};

// The row of this idiom whose height is nearest to h; the first of equals wins.
const DeviceClassRow* nearestRow(Idiom idiom, double h) {
    const DeviceClassRow* best = nullptr;
    for (const DeviceClassRow& r : kRows)
        if (r.idiom == idiom && (!best || std::fabs(r.height - h) < std::fabs(best->height - h)))
            best = &r;
    return best;
}

} // namespace

std::span<const DeviceClassRow> deviceClasses() { return kRows; }

const DeviceClassRow* deviceClassFor(Idiom idiom, double height) {
    for (const DeviceClassRow& r : kRows)
        if (r.idiom == idiom && r.height == height)
            return &r;
    return nullptr;
}

std::optional<DeviceClass> DeviceClass::parse(std::string_view name) {
    const auto dash = name.find('-');
    if (dash == std::string_view::npos)
        return std::nullopt;
    const std::string_view kind = name.substr(0, dash);
    const std::string_view number = name.substr(dash + 1);
    DeviceClass c;
    if (kind == "phone")
        c.idiom = Idiom::Phone;
    else if (kind == "pad")
        c.idiom = Idiom::Pad;
    else
        return std::nullopt;
    int h = 0;
    const auto [end, ec] = std::from_chars(number.data(), number.data() + number.size(), h);
    if (ec != std::errc{} || end != number.data() + number.size() || h < 200 || h > 4000)
        return std::nullopt;
    c.height = h;
    const DeviceClassRow* best = nearestRow(c.idiom, h);
    // Keep the aspect of the nearest known device for heights of no table.
    c.width = best->height == h ? best->width : std::round(best->width * h / best->height);
    return c;
}

std::string DeviceClass::name() const {
    return std::string(idiom == Idiom::Pad ? "pad-" : "phone-") + std::to_string(static_cast<int>(height));
}

const std::vector<double>& layoutHeights(Idiom idiom) {
    auto heights = [](Idiom of) {
        std::vector<double> v;
        for (const DeviceClassRow& r : kRows)
            if (r.idiom == of)
                v.push_back(r.height);
        return v;
    };
    static const std::vector<double> phone = heights(Phone), pad = heights(Pad), none;
    return idiom == Phone ? phone : idiom == Pad ? pad : none;
}

std::optional<std::string> storyboardFor(Idiom idiom, double height) {
    if (const DeviceClassRow* r = deviceClassFor(idiom, height))
        return std::string(r->storyboard);
    return std::nullopt;
}

DeviceClass nearestLayoutClass(const DeviceClass& c) {
    const Idiom idiom = c.idiom == Pad ? Pad : Phone;
    const DeviceClassRow* best = nearestRow(idiom, c.height);
    return DeviceClass{idiom, best->height, best->width};
}

std::optional<HighlightVariant> highlightFor(Idiom idiom, double height) {
    if (const DeviceClassRow* r = deviceClassFor(idiom, height))
        return HighlightVariant{r->highlightSuffix, r->highlightView};
    return std::nullopt;
}

std::optional<double> pickerScaleFor(Idiom idiom, double height) {
    if (const DeviceClassRow* r = deviceClassFor(idiom, height))
        return r->pickerScale;
    if (idiom == Pad)
        return kPadPicker;
    return std::nullopt;
}

std::optional<std::string_view> fretboardSuffixFor(Idiom idiom, double height) {
    if (const DeviceClassRow* r = deviceClassFor(idiom, height))
        return r->fretboardSuffix.empty() ? std::nullopt : std::optional(r->fretboardSuffix);
    if (idiom == Pad)
        return kPadNeck;
    return std::nullopt;
}

std::string_view highlightPrefix(long code) {
    switch (code) {
    case 1: return "1st";
    case 2: return "2nd";
    case 3: return "3rd";
    case 4: return "4th";
    case 14: return "1st_4th";
    default: return "";
    }
}

} // namespace uke
