#include "app/AppDelegate.h"

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
    // Independent equality tests with the height logged after each group, as the
    // layout table has always been walked; the repeated log lines are expected.
    if (s_.device.idiom() == Idiom::Phone) {
        const double h = s_.device.screenHeight();
        auto row = [&](double height, const char* storyboard) {
            if (h == height)
                load(storyboard);
        };
        auto logHeight = [&] { s_.log.log(format("iPhone has a height of: %f", h)); };
        row(480, "Main_iPhone4s");
        row(568, "Main_iPhone");
        row(667, "Main_iPhone6");
        row(736, "Main_iPhone6Plus");
        logHeight();
        row(812, "Main_iPhoneX");
        logHeight();
        row(844, "Main_iPhone12Pro");
        row(852, "Main_iPhone12Pro");
        row(874, "Main_iPhone12Pro");
        logHeight();
        row(896, "Main_iPhoneXSMax");
        logHeight();
        row(912, "Main_iPhone12ProMax");
        row(926, "Main_iPhone12ProMax");
        logHeight();
        row(932, "Main_iPhone12ProMax");
        row(956, "Main_iPhone12ProMax");
        logHeight();
    }
    if (s_.device.idiom() == Idiom::Pad) {
        const double h = s_.device.screenHeight();
        auto row = [&](double height, const char* storyboard) {
            if (h == height)
                load(storyboard);
        };
        auto logHeight = [&] { s_.log.log(format("iPad has a height of: %f", h)); };
        row(1024, "Main_iPad");
        logHeight();
        row(1080, "Main_iPad_Pro_10_5");
        logHeight();
        row(1112, "Main_iPad_Pro_10_5");
        logHeight();
        row(1133, "Main_iPad_Mini6");
        row(1180, "Main_iPad_Pro_11");
        row(1194, "Main_iPad_Pro_11");
        row(1210, "Main_iPad_Pro_11");
        logHeight();
        row(1366, "Main_iPad_Pro");
        row(1376, "Main_iPad_Pro");
    }
}

} // namespace uke
