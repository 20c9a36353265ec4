#include "base/LayoutClass.h"

#include <charconv>
#include <cmath>

namespace uke {

namespace {

struct Row {
    double height;
    double width;
    const char* storyboard;
};

const std::vector<Row>& phoneRows() {
    static const std::vector<Row> rows = {
        {480, 320, "Main_iPhone4s"},       {568, 320, "Main_iPhone"},         {667, 375, "Main_iPhone6"},
        {736, 414, "Main_iPhone6Plus"},    {812, 375, "Main_iPhoneX"},        {844, 390, "Main_iPhone12Pro"},
        {852, 393, "Main_iPhone12Pro"},    {874, 402, "Main_iPhone12Pro"},    {896, 414, "Main_iPhoneXSMax"},
        {912, 420, "Main_iPhone12ProMax"}, {926, 428, "Main_iPhone12ProMax"}, {932, 430, "Main_iPhone12ProMax"},
        {956, 440, "Main_iPhone12ProMax"},
    };
    return rows;
}

const std::vector<Row>& padRows() {
    static const std::vector<Row> rows = {
        {1024, 768, "Main_iPad"},          {1080, 810, "Main_iPad_Pro_10_5"}, {1112, 834, "Main_iPad_Pro_10_5"},
        {1133, 744, "Main_iPad_Mini6"},    {1180, 820, "Main_iPad_Pro_11"},   {1194, 834, "Main_iPad_Pro_11"},
        {1210, 834, "Main_iPad_Pro_11"},   {1366, 1024, "Main_iPad_Pro"},     {1376, 1032, "Main_iPad_Pro"},
    };
    return rows;
}

const std::vector<Row>* rowsFor(Idiom idiom) {
    if (idiom == Idiom::Phone)
        return &phoneRows();
    if (idiom == Idiom::Pad)
        return &padRows();
    return nullptr;
}

} // namespace

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
    const Row* best = nullptr;
    for (const Row& r : *rowsFor(c.idiom))
        if (!best || std::fabs(r.height - h) < std::fabs(best->height - h))
            best = &r;
    // Keep the aspect of the nearest known device for heights of no table.
    c.width = best->height == h ? best->width : std::round(best->width * h / best->height);
    return c;
}

std::string DeviceClass::name() const {
    return std::string(idiom == Idiom::Pad ? "pad-" : "phone-") + std::to_string(static_cast<int>(height));
}

const std::vector<double>& layoutHeights(Idiom idiom) {
    static const std::vector<double> phone = [] {
        std::vector<double> v;
        for (const Row& r : phoneRows())
            v.push_back(r.height);
        return v;
    }();
    static const std::vector<double> pad = [] {
        std::vector<double> v;
        for (const Row& r : padRows())
            v.push_back(r.height);
        return v;
    }();
    static const std::vector<double> none;
    return idiom == Idiom::Phone ? phone : idiom == Idiom::Pad ? pad : none;
}

std::optional<std::string> storyboardFor(Idiom idiom, double height) {
    if (const auto* rows = rowsFor(idiom))
        for (const Row& r : *rows)
            if (r.height == height)
                return std::string(r.storyboard);
    return std::nullopt;
}

DeviceClass nearestLayoutClass(const DeviceClass& c) {
    const auto* rows = rowsFor(c.idiom);
    if (!rows)
        rows = &phoneRows();
    const Row* best = &rows->front();
    for (const Row& r : *rows)
        if (std::fabs(r.height - c.height) < std::fabs(best->height - c.height))
            best = &r;
    return DeviceClass{c.idiom == Idiom::Pad ? Idiom::Pad : Idiom::Phone, best->height, best->width};
}

std::optional<HighlightVariant> highlightFor(Idiom idiom, double h) {
    if (idiom == Idiom::Pad) {
        if (h == 1024)
            return HighlightVariant{"_string_iPad.png", HighlightView::TunedStringiPad};
        for (double x : {1080.0, 1112.0, 1133.0, 1180.0, 1194.0, 1210.0, 1366.0, 1376.0})
            if (h == x)
                return HighlightVariant{"_string_iPad_Pro.png", HighlightView::TunedStringiPad};
    } else if (idiom == Idiom::Phone) {
        if (h == 480)
            return HighlightVariant{"_string.png", HighlightView::TunedString};
        if (h == 568)
            return HighlightVariant{"_string_5.png", HighlightView::TunedString5};
        if (h == 667)
            return HighlightVariant{"_string_6.png", HighlightView::TunedString5};
        for (double x : {736.0, 812.0, 844.0, 852.0, 874.0, 896.0, 912.0, 926.0, 932.0, 956.0})
            if (h == x)
                return HighlightVariant{"_string_6plus.png", HighlightView::TunedString5};
    }
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
