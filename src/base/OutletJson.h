// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <string>
#include <string_view>

#include "base/Outlets.h"
#include "platform/SettingsStore.h"

namespace uke {

// A JSON string literal; bytes of UTF-8 text pass through unchanged.
std::string jsonQuoted(std::string_view s);
// A JSON number that reads back as exactly `v`, always with a point or exponent;
// null for infinities and NaN, which JSON cannot write.
std::string jsonNumber(double v);

// JSON text of outlets, for tools and tests that read a screen from outside.
// Labels carry text, image views image, buttons title (and image when they have
// one), switches on; sliders value and range, steppers value, range and step,
// pickers value, rows, tag and scale: everything a view draws them from. Every
// outlet carries hidden.
std::string outletJson(const Label& o);
std::string outletJson(const ImageView& o);
std::string outletJson(const Button& o);
std::string outletJson(const Switch& o);
std::string outletJson(const Slider& o);
std::string outletJson(const Stepper& o);
std::string outletJson(const Picker& o);

// One object with every outlet of a screen model under its name, in the model's order.
template <class Model> std::string outletsJson(const Model& model) {
    std::string out = "{";
    bool first = true;
    model.forEachOutlet([&](const char* name, const auto& outlet) {
        out += first ? "" : ", ";
        first = false;
        out += jsonQuoted(name) + ": " + outletJson(outlet);
    });
    return out + "}";
}

// A stored setting as JSON: booleans, integers, numbers with a point, strings.
std::string settingJson(const SettingValue& v);

} // namespace uke
