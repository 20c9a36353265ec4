// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <optional>
#include <span>
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
    double width = 390.0; // points; a sensible window width for the class

    // "phone-844", "pad-1194". Nothing for a malformed name; an unknown height of a
    // known idiom is accepted (it then matches no layout table).
    static std::optional<DeviceClass> parse(std::string_view name);
    std::string name() const;
};

enum class HighlightView { TunedString, TunedString5, TunedStringiPad };

// One device class that has a layout, with everything chosen by its exact height.
struct DeviceClassRow {
    Idiom idiom;
    double height;
    double width; // points
    std::string_view storyboard;
    // The start-up walk logs the height after testing this row; the groups are
    // uneven, and a height of no table is logged just the same.
    bool logsHeightAfter;
    std::string_view highlightSuffix; // "_string_6plus.png", ...
    HighlightView highlightView;
    std::optional<double> pickerScale; // unscaled where empty
    std::string_view fretboardSuffix;  // the layout's own neck picture where empty
};

// Every class with a layout, phones then pads, each idiom in the order the
// start-up walk tests the heights.
std::span<const DeviceClassRow> deviceClasses();

// The row of exactly this class, or nothing.
const DeviceClassRow* deviceClassFor(Idiom idiom, double height);

// Heights that have a layout, per idiom, in table order.
const std::vector<double>& layoutHeights(Idiom idiom);

// The storyboard of a device class, or nothing for a class in no table.
std::optional<std::string> storyboardFor(Idiom idiom, double height);

// The nearest class of the same idiom that has a layout (for windows of no table).
DeviceClass nearestLayoutClass(const DeviceClass& c);

struct HighlightVariant {
    std::string_view suffix; // "_string_6plus.png", ...
    HighlightView view;
};
// The string-highlight picture variant and view of a device class; nothing where
// the class has none.
std::optional<HighlightVariant> highlightFor(Idiom idiom, double height);
// The language picker's scale, or nothing to leave it unscaled. Every pad scales,
// even one of no table.
std::optional<double> pickerScaleFor(Idiom idiom, double height);
// The suffix of the chord charts' neck pictures ("_iPhone6.png", ...), or nothing
// to keep the layout's own. Every pad has one, even a pad of no table.
std::optional<std::string_view> fretboardSuffixFor(Idiom idiom, double height);
std::string_view highlightPrefix(long code);

} // namespace uke
