// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Every key of the settings store, written once.
namespace uke::keys {

inline constexpr const char* NewLaunchOrvel = "NewLaunchOrvel";
inline constexpr const char* SavedLanguage = "SavedLanguage";
inline constexpr const char* savedSliderValue = "savedSliderValue";
inline constexpr const char* soundNotificationEnabled = "soundNotificationEnabled";
inline constexpr const char* stringSoundsEnabled = "stringSoundsEnabled";
inline constexpr const char* frequencyChartEnabled = "frequencyChartEnabled";
inline constexpr const char* savedA4Calibration = "savedA4Calibration";
inline constexpr const char* numberOfRuns = "numberOfRuns";
inline constexpr const char* currentlyUsingTuningFork = "currentlyUsingTuningFork";
inline constexpr const char* chordsSearched = "chordsSearched";
inline constexpr const char* variantsSearched = "variantsSearched";

inline constexpr const char* kRatingPromptFirstUseDate = "kRatingPromptFirstUseDate";
inline constexpr const char* kRatingPromptUseCount = "kRatingPromptUseCount";
inline constexpr const char* kRatingPromptSignificantEventCount = "kRatingPromptSignificantEventCount";
inline constexpr const char* kRatingPromptCurrentVersion = "kRatingPromptCurrentVersion";
inline constexpr const char* kRatingPromptRatedCurrentVersion = "kRatingPromptRatedCurrentVersion";
inline constexpr const char* kRatingPromptDeclinedToRate = "kRatingPromptDeclinedToRate";
inline constexpr const char* kRatingPromptReminderRequestDate = "kRatingPromptReminderRequestDate";

} // namespace uke::keys
