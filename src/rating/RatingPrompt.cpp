#include "rating/RatingPrompt.h"

namespace uke {

RatingPrompt::RatingPrompt(Services services) : s_(services) {}

void RatingPrompt::setAppId(const std::string& appId) { appId_ = appId; }
void RatingPrompt::setDaysUntilPrompt(double days) { daysUntilPrompt_ = days; }
void RatingPrompt::setUsesUntilPrompt(long uses) { usesUntilPrompt_ = uses; }
void RatingPrompt::setSignificantEventsUntilPrompt(long events) { significantEventsUntilPrompt_ = events; }
void RatingPrompt::setTimeBeforeReminding(double days) { timeBeforeReminding_ = days; }
void RatingPrompt::setOpenInAppStore(bool open) { openInAppStore_ = open; }

void RatingPrompt::appLaunched(bool) {}
void RatingPrompt::tryToShowPrompt() {}

} // namespace uke
