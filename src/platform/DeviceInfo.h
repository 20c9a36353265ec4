// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <string>

namespace uke {

enum class Idiom { Phone, Pad, Other };

class DeviceInfo {
public:
    virtual ~DeviceInfo() = default;
    virtual Idiom idiom() const = 0;
    // Height of the main screen's bounds, in points.
    virtual double screenHeight() const = 0;
    // For example "17.0"; read as a float where the logic compares versions.
    virtual std::string systemVersion() const = 0;
};

} // namespace uke
