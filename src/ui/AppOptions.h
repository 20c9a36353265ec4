// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QString>

#include "base/LayoutClass.h"

namespace uke {

// How one app is run, as main reads it from the command line.
struct AppOptions {
    DeviceClass device;
    QString language;     // empty: follow the system locale
    QString settingsPath; // empty: the standard location
    QString resourcePath; // empty: ../share/ukulele-tuner/sounds from the program, else sounds/ beside it
    QString stateOut;     // file rewritten with the tuner's outlets as they change
    bool quietLog = false;
};

} // namespace uke
