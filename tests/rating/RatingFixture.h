// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// A rating prompt on virtual ports, configured as start-up configures it.
#include <gtest/gtest.h>

#include <memory>

#include "base/SettingsKeys.h"
#include "platform/virtual/VirtualPlatform.h"
#include "rating/RatingPrompt.h"

namespace uke::test {

constexpr double kDay = 86400.0;

class RatingFixture : public ::testing::Test {
protected:
    RatingFixture() : rating(std::make_unique<RatingPrompt>(platform.services())) {
        rating->setAppId("123456");
        rating->setDaysUntilPrompt(2.0);
        rating->setUsesUntilPrompt(2);
        rating->setSignificantEventsUntilPrompt(-1);
        rating->setTimeBeforeReminding(2.0);
        rating->setOpenInAppStore(true);
    }

    SettingsStore& store() { return platform.memoryStore; }
    bool met() const { return rating->ratingConditionsHaveBeenMet(); }
    double now() const { return platform.runLoop.now(); }
    void runPending() { platform.runLoop.runPending(); }

    // This version, first used `daysAgo` days ago and used `uses` times: with the
    // start-up configuration every condition holds.
    void seedMet(double daysAgo = 3.0, long uses = 5) {
        store().setString(keys::kRatingPromptCurrentVersion, rating->bundle().version);
        store().setDouble(keys::kRatingPromptFirstUseDate, now() - daysAgo * kDay);
        store().setInteger(keys::kRatingPromptUseCount, uses);
    }

    VirtualPlatform platform;
    std::unique_ptr<RatingPrompt> rating;
};

} // namespace uke::test
