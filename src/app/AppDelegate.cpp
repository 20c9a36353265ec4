// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/AppDelegate.h"

#include "base/Format.h"
#include "base/LayoutClass.h"
#include "rating/RatingPrompt.h"

namespace uke {

AppDelegate::AppDelegate(Services services, RatingPrompt& rating, WindowBuilder buildWindow, std::string appId)
    : s_(services), rating_(rating), buildWindow_(std::move(buildWindow)), appId_(std::move(appId)) {}

bool AppDelegate::didFinishLaunchingWithOptions() {
    rating_.setAppId(appId_);
    rating_.setDaysUntilPrompt(2.0);
    rating_.setUsesUntilPrompt(2);
    rating_.setSignificantEventsUntilPrompt(-1);
    rating_.setTimeBeforeReminding(2.0);
    rating_.setOpenInAppStore(true);
    initializeStoryBoardBasedOnScreenSize();
    rating_.appLaunched(true);
    return true;
}

void AppDelegate::load(const std::string& storyboard) {
    window_ = storyboard;
    if (buildWindow_)
        buildWindow_(storyboard);
}

void AppDelegate::initializeStoryBoardBasedOnScreenSize() {
    // Independent equality tests, row by row, with the height logged after each
    // group of rows as the layout table has always been walked; the repeated log
    // lines are expected, and a height of no table still logs them all.
    auto walk = [&](Idiom idiom, const char* device) {
        if (s_.device.idiom() != idiom)
            return;
        const double h = s_.device.screenHeight();
        for (const DeviceClassRow& row : deviceClasses()) {
            if (row.idiom != idiom)
                continue;
            if (row.height == h)
                load(std::string(row.storyboard));
            if (row.logsHeightAfter)
                s_.log.log(format("%s has a height of: %f", device, h));
        }
    };
    walk(Idiom::Phone, "iPhone");
    walk(Idiom::Pad, "iPad");
}

} // namespace uke
