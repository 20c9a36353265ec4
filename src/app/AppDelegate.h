// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <functional>
#include <optional>
#include <string>

#include "platform/Services.h"

namespace uke {

class RatingPrompt;

// Start-up: configures the rating prompt, picks the layout of the device class and
// reports the launch.
class AppDelegate {
public:
    // Builds the window for a storyboard name and shows it.
    using WindowBuilder = std::function<void(const std::string& storyboard)>;

    AppDelegate(Services services, RatingPrompt& rating, WindowBuilder buildWindow, std::string appId);

    bool didFinishLaunchingWithOptions();
    void initializeStoryBoardBasedOnScreenSize();
    bool prefersStatusBarHidden() const { return true; }

    void applicationWillResignActive() {}
    void applicationDidEnterBackground() {}
    void applicationWillEnterForeground() {}
    void applicationDidBecomeActive() {}
    void applicationWillTerminate() {}

    // The storyboard the window was built from, if any.
    const std::optional<std::string>& window() const { return window_; }

private:
    void load(const std::string& storyboard);

    Services s_;
    RatingPrompt& rating_;
    WindowBuilder buildWindow_;
    std::string appId_;
    std::optional<std::string> window_;
};

} // namespace uke
