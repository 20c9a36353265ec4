#pragma once
#include <string>

#include "platform/Services.h"

namespace uke {

// Counts uses and days and, once the conditions are met, asks the player to rate
// the app.
class RatingPrompt {
public:
    explicit RatingPrompt(Services services);

    void setAppId(const std::string& appId);
    void setDaysUntilPrompt(double days);
    void setUsesUntilPrompt(long uses);
    void setSignificantEventsUntilPrompt(long events);
    void setTimeBeforeReminding(double days);
    void setOpenInAppStore(bool open);

    void appLaunched(bool canPromptForRating);
    void tryToShowPrompt();

    const std::string& appId() const { return appId_; }
    double daysUntilPrompt() const { return daysUntilPrompt_; }
    long usesUntilPrompt() const { return usesUntilPrompt_; }
    long significantEventsUntilPrompt() const { return significantEventsUntilPrompt_; }
    double timeBeforeReminding() const { return timeBeforeReminding_; }
    bool openInAppStore() const { return openInAppStore_; }

private:
    Services s_;
    std::string appId_;
    double daysUntilPrompt_ = 30.0;
    long usesUntilPrompt_ = 20;
    long significantEventsUntilPrompt_ = -1;
    double timeBeforeReminding_ = 1.0;
    bool openInAppStore_ = true;
};

} // namespace uke
