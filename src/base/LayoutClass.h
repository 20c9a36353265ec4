#pragma once
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/DeviceInfo.h"

namespace uke {

// A device class: the idiom and the exact height of the main screen in points.
// Every layout-dependent choice is an exact-equality lookup, never a range.
struct DeviceClass {
    Idiom idiom = Idiom::Phone;
    double height = 844.0;
    double width = 390.0;  // points; a sensible window width for the class

    // "phone-844", "pad-1194". Nothing for a malformed name; an unknown height of a
    // known idiom is accepted (it then matches no layout table).
    static std::optional<DeviceClass> parse(std::string_view name);
    std::string name() const;
};

// Heights that have a layout, per idiom, in table order.
const std::vector<double>& layoutHeights(Idiom idiom);

// The storyboard of a device class, or nothing for a class in no table.
std::optional<std::string> storyboardFor(Idiom idiom, double height);

// The nearest class of the same idiom that has a layout (for windows of no table).
DeviceClass nearestLayoutClass(const DeviceClass& c);

enum class HighlightView { TunedString, TunedString5, TunedStringiPad };
struct HighlightVariant {
    std::string_view suffix;  // "_string_6plus.png", ...
    HighlightView view;
};
// The string-highlight picture variant and view of a device class; nothing where
// the class has none.
std::optional<HighlightVariant> highlightFor(Idiom idiom, double height);
// "1st", "2nd", "3rd", "4th" or "1st_4th" for indication codes 1..4 and 14.
std::string_view highlightPrefix(long code);

} // namespace uke
