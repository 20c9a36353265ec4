// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <array>
#include <atomic>
#include <cstdint>

#include "base/StringTargetTable.h"

namespace uke {

#ifdef UKE_DEMO_MODE
inline constexpr bool demoModeEnabled = true;
#else
inline constexpr bool demoModeEnabled = false;
#endif

// State that several screens share for the life of the process. The app makes one;
// tests make a fresh one each. Everything here is touched on the main thread only.
struct SharedState {
    // Tuning selection; never persisted, 1 at every launch.
    int64_t chosenTuning = 1;
    // Chord chart of the current tuning: 1 standard, 2 baritone, 3 open G C E G, 4 open D G B D.
    int64_t chosenUkuleleType = 1;
    StringTargetTable targets;

    // Sensitivity thresholds on the linear average level.
    double bottomLimit = 0.002;
    double topLimit = 0.0045;

    // Mirrors of the stored settings.
    bool soundNotificationOn = true;
    bool stringSoundsOn = false;
    bool frequencyChartOn = true;
    long micSensitivityValue = 0;
    long a4Calibration = 0;
    long languageIndex = 1;

    // Per-string flags, string 1 at index 0.
    std::array<uint8_t, 4> tuningBools{};       // the beep has sounded
    std::array<uint8_t, 4> firstTuningBools{};  // the string has been reached
    std::array<uint8_t, 4> ringShown{};
    // Written when the tuning-fork panel opens and closes; nothing reads it.
    bool tuningForkFlag = false;

    // Chord-name spelling, kept across openings of the chord library.
    int64_t showSharpNames = 1;
    int64_t showFlatNames = 0;
    uint8_t accidentalToggle = 0;
};

} // namespace uke
