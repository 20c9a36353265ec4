// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <string>
#include <vector>

namespace uke {

// The small values a screen is made of. Controllers write them; a view renders
// them. Images are named as the logic names them ("green64.png"); an empty name
// shows nothing.
struct Label {
    std::string text;
    bool hidden = false;
    bool operator==(const Label&) const = default;
};

struct ImageView {
    std::string image;
    bool hidden = false;
    bool operator==(const ImageView&) const = default;
};

struct Button {
    std::string title;
    std::string image;
    bool hidden = false;
    bool operator==(const Button&) const = default;
};

struct Switch {
    bool on = false;
    bool hidden = false;
    bool operator==(const Switch&) const = default;
};

struct Slider {
    double value = 0.0;
    double minimum = 0.0;
    double maximum = 1.0;
    bool hidden = false;
    bool operator==(const Slider&) const = default;
};

struct Stepper {
    double value = 0.0;
    double minimum = 0.0;
    double maximum = 100.0;
    double stepValue = 1.0;
    bool hidden = false;
    bool operator==(const Stepper&) const = default;
};

struct Picker {
    std::vector<std::string> rows;
    int selectedRow = 0;
    int tag = 0;
    double scale = 1.0;
    bool hidden = false;
    bool operator==(const Picker&) const = default;
};

} // namespace uke
