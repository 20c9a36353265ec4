// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#include "rating/RatingPrompt.h"

#include <charconv>
#include <cstdlib>
#include <utility>
#include <vector>

#include "base/SettingsKeys.h"

namespace uke {

namespace {

constexpr double kSecondsPerDay = 86400.0;
constexpr double kProbeTimeoutSeconds = 20.0;

// Store addresses by system version, in the store app's own scheme; "APP_ID" is
// replaced by the app's identifier. The oldest reviews page lives on a host of
// its own, not on the store host of the other two.
constexpr const char* kReviewUrlBefore7 =
    "itms-apps://" UKE_LEGACY_REVIEW_HOST "/WebObjects/MZStore.woa/wa/viewContentsUserReviews"
    "?type=Purple+Software&id=APP_ID";
constexpr const char* kAppUrlOn7 = "itms-apps://" UKE_STORE_HOST "/app/idAPP_ID";
constexpr const char* kReviewUrlFrom8 =
    "itms-apps://" UKE_STORE_HOST "/WebObjects/MZStore.woa/wa/viewContentsUserReviews"
    "?id=APP_ID&onlyLatestVersion=true&pageNumber=0&sortOrdering=1"
    "&type=Purple+Software";

// The platform's "%@" formatting with a single text argument.
std::string withObject(std::string format, const std::string& value) {
    const auto at = format.find("%@");
    if (at != std::string::npos)
        format.replace(at, 2, value);
    return format;
}

std::string replaceAll(std::string text, const std::string& from, const std::string& to) {
    for (auto at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size()))
        text.replace(at, from.size(), to);
    return text;
}

// Reads the leading number of a version such as "17.4.1", whatever the C locale.
double leadingNumber(const std::string& text) {
    double value = 0.0;
#if defined(__cpp_lib_to_chars)
    std::from_chars(text.data(), text.data() + text.size(), value);
#else
    // The browser build's library has no floating-point from_chars. Its C locale
    // never changes; only what from_chars would read is handed to strtod (no
    // spaces, signs or hexadecimal).
    const std::string number = text.substr(0, text.find_first_not_of("-0123456789.eE"));
    if (!number.empty() && number[0] != 'e' && number[0] != 'E')
        value = std::strtod(number.c_str(), nullptr);
#endif
    return value;
}

} // namespace

RatingPrompt::RatingPrompt(Services services)
    : s_(services), gate_(std::make_shared<Gate>()), eventQueue_(services.runLoop) {
    openInAppStore_ = systemVersion() >= 7.0;
}

RatingPrompt::~RatingPrompt() {
    std::lock_guard lock(gate_->mutex);
    gate_->open = false;
}

void RatingPrompt::setAppId(const std::string& appId) { appId_ = appId; }
void RatingPrompt::setDaysUntilPrompt(double days) { daysUntilPrompt_ = days; }
void RatingPrompt::setUsesUntilPrompt(long uses) { usesUntilPrompt_ = uses; }
void RatingPrompt::setSignificantEventsUntilPrompt(long events) { significantEventsUntilPrompt_ = events; }
void RatingPrompt::setTimeBeforeReminding(double days) { timeBeforeReminding_ = days; }
void RatingPrompt::setOpenInAppStore(bool open) { openInAppStore_ = open; }
void RatingPrompt::setDebug(bool debug) { debug_ = debug; }
void RatingPrompt::setCustomAlertTitle(const std::string& title) { customAlertTitle_ = title; }
void RatingPrompt::setCustomAlertMessage(const std::string& message) { customAlertMessage_ = message; }
void RatingPrompt::setCustomAlertCancelButtonTitle(const std::string& title) { customAlertCancelButtonTitle_ = title; }
void RatingPrompt::setCustomAlertRateButtonTitle(const std::string& title) { customAlertRateButtonTitle_ = title; }
void RatingPrompt::setCustomAlertRateLaterButtonTitle(const std::string& title) {
    customAlertRateLaterButtonTitle_ = title;
}
void RatingPrompt::setDelegate(RatingPromptDelegate* delegate) { delegate_ = delegate; }
void RatingPrompt::setUsesAnimation(bool animation) { usesAnimation_ = animation; }
void RatingPrompt::setStatusBarStyle(StatusBarStyle style) { statusBarStyle_ = style; }
void RatingPrompt::setModalOpen(bool open) { modalOpen_ = open; }
void RatingPrompt::setAlwaysUseMainBundle(bool useMainBundle) { alwaysUseMainBundle_ = useMainBundle; }
void RatingPrompt::setBundle(Bundle bundle) { bundle_ = std::move(bundle); }

RunLoop::Task RatingPrompt::toMainThread(RunLoop::Task task) {
    return [gate = gate_, &loop = s_.runLoop, task = std::move(task)]() mutable {
        std::lock_guard lock(gate->mutex);
        if (!gate->open)
            return;
        loop.dispatchMain([gate, task = std::move(task)] {
            {
                std::lock_guard check(gate->mutex);
                if (!gate->open)
                    return;
            }
            task();
        });
    };
}

void RatingPrompt::appLaunched(bool canPromptForRating) {
    s_.runLoop.dispatchBackground(toMainThread([this, canPromptForRating] {
        if (debug_)
            showRatingAlert(true);
        else
            incrementAndRate(canPromptForRating);
    }));
}

void RatingPrompt::appEnteredForeground(bool canPromptForRating) {
    eventQueue_.addOperation(toMainThread([this, canPromptForRating] { incrementAndRate(canPromptForRating); }));
}

void RatingPrompt::userDidSignificantEvent(bool canPromptForRating) {
    eventQueue_.addOperation(
        toMainThread([this, canPromptForRating] { incrementSignificantEventAndRate(canPromptForRating); }));
}

void RatingPrompt::appWillResignActive() {
    if (alertVisible_) {
        s_.alerts.dismiss();
        alertVisible_ = false;
    }
    debugLog("RATINGPROMPT appWillResignActive");
}

void RatingPrompt::tryToShowPrompt() { showPromptWithChecks(true, true); }

void RatingPrompt::showPrompt() { showPromptWithChecks(true, true); }

void RatingPrompt::forceShowPrompt(bool displayRateLaterButton) { showPromptWithChecks(false, displayRateLaterButton); }

void RatingPrompt::debugLog(const std::string& line) {
    if (debug_)
        s_.log.log(line);
}

void RatingPrompt::count(Counter counter) {
    SettingsStore& st = s_.settings;
    const std::string& version = bundle_.version;

    std::string trackingVersion = st.stringForKey(keys::kRatingPromptCurrentVersion);
    if (trackingVersion.empty()) {
        trackingVersion = version;
        st.setString(keys::kRatingPromptCurrentVersion, version);
    }
    debugLog("RATINGPROMPT Tracking version: " + trackingVersion);

    if (trackingVersion == version) {
        if (storedDate(keys::kRatingPromptFirstUseDate) == 0.0)
            st.setDouble(keys::kRatingPromptFirstUseDate, s_.runLoop.now());
        if (counter == Counter::Uses) {
            const long uses = countedOnce(st.integerForKey(keys::kRatingPromptUseCount));
            st.setInteger(keys::kRatingPromptUseCount, uses);
            debugLog("RATINGPROMPT Use count: " + std::to_string(uses));
        } else {
            const long events = countedOnce(st.integerForKey(keys::kRatingPromptSignificantEventCount));
            st.setInteger(keys::kRatingPromptSignificantEventCount, events);
            debugLog("RATINGPROMPT Significant event count: " + std::to_string(events));
        }
    } else {
        // A new version starts afresh. An event that starts it leaves the first use
        // unset and counts no use: the next use sets the date and counts from 1.
        const bool byEvent = counter == Counter::SignificantEvents;
        st.setString(keys::kRatingPromptCurrentVersion, version);
        st.setDouble(keys::kRatingPromptFirstUseDate, byEvent ? 0.0 : s_.runLoop.now());
        st.setInteger(keys::kRatingPromptUseCount, byEvent ? 0 : 1);
        st.setInteger(keys::kRatingPromptSignificantEventCount, byEvent ? 1 : 0);
        st.setBool(keys::kRatingPromptRatedCurrentVersion, false);
        st.setBool(keys::kRatingPromptDeclinedToRate, false);
        st.setDouble(keys::kRatingPromptReminderRequestDate, 0.0);
    }
    st.synchronize();
}

void RatingPrompt::incrementUseCount() { count(Counter::Uses); }

void RatingPrompt::incrementSignificantEventCount() { count(Counter::SignificantEvents); }

void RatingPrompt::incrementAndRate(bool canPromptForRating) {
    incrementUseCount();
    if (canPromptForRating && ratingConditionsHaveBeenMet() && ratingAlertIsAppropriate())
        showRatingAlert(true);
}

void RatingPrompt::incrementSignificantEventAndRate(bool canPromptForRating) {
    incrementSignificantEventCount();
    if (canPromptForRating && ratingConditionsHaveBeenMet() && ratingAlertIsAppropriate())
        showRatingAlert(true);
}

double RatingPrompt::storedDate(const std::string& key) const {
    // A date that cannot have happened (before 1970, after now, or not a number)
    // reads as unset: a damaged first use starts afresh at the next use, and a
    // damaged reminder does not hold the prompt back for ever.
    const double date = s_.settings.doubleForKey(key);
    return date >= 0.0 && date <= s_.runLoop.now() ? date : 0.0;
}

bool RatingPrompt::ratingConditionsHaveBeenMet() const {
    if (debug_)
        return true;
    const SettingsStore& st = s_.settings;
    const double now = s_.runLoop.now();

    const double sinceFirstUse = now - storedDate(keys::kRatingPromptFirstUseDate);
    if (sinceFirstUse < daysUntilPrompt_ * kSecondsPerDay)
        return false;
    if (st.integerForKey(keys::kRatingPromptUseCount) < usesUntilPrompt_)
        return false;
    if (st.integerForKey(keys::kRatingPromptSignificantEventCount) < significantEventsUntilPrompt_)
        return false;
    const double sinceReminder = now - storedDate(keys::kRatingPromptReminderRequestDate);
    if (sinceReminder < timeBeforeReminding_ * kSecondsPerDay)
        return false;
    return true;
}

bool RatingPrompt::ratingAlertIsAppropriate() {
    return connectedToNetwork() && !s_.settings.boolForKey(keys::kRatingPromptDeclinedToRate) && !alertVisible_ &&
           !s_.settings.boolForKey(keys::kRatingPromptRatedCurrentVersion);
}

bool RatingPrompt::connectedToNetwork() {
    const auto flags = s_.network.reachabilityFlags();
    if (!flags) {
        s_.log.log("Error. Could not recover network reachability flags");
        return false;
    }
    // The fetch only wakes the connection up; its outcome is never looked at.
    const bool fetchRunning = s_.network.startFetch(UKE_PROBE_URL, kProbeTimeoutSeconds);
    const bool reachable = flags->reachable && !flags->connectionRequired;
    return (reachable || flags->transientConnection) && fetchRunning;
}

void RatingPrompt::showPromptWithChecks(bool withChecks, bool displayRateLaterButton) {
    if (withChecks && !ratingAlertIsAppropriate())
        return;
    showRatingAlert(displayRateLaterButton);
}

void RatingPrompt::showRatingAlert(bool displayRateLaterButton) {
    if (delegate_ && !delegate_->ratingPromptShouldDisplayAlert(*this))
        return;
    if (s_.storeReview.reviewRequestAvailable()) {
        rateApp();
        return;
    }

    // Shown in the order rate, later, cancel; each reports its fixed index.
    std::vector<std::pair<std::string, long>> buttons{{alertRateTitle(), 1}};
    if (displayRateLaterButton)
        buttons.emplace_back(alertRateLaterTitle(), 2);
    buttons.emplace_back(alertCancelTitle(), 0);

    std::vector<std::string> titles;
    std::vector<long> indices;
    for (const auto& [title, index] : buttons) {
        titles.push_back(title);
        indices.push_back(index);
    }
    alertVisible_ = true;
    s_.alerts.present(alertTitle(), alertMessage(), titles, [gate = gate_, this, indices](int pressed) {
        if (!gate->open || pressed < 0 || static_cast<size_t>(pressed) >= indices.size())
            return;
        clickedButtonAtIndex(indices[static_cast<size_t>(pressed)]);
    });
    if (delegate_)
        delegate_->ratingPromptDidDisplayAlert(*this);
}

void RatingPrompt::clickedButtonAtIndex(long buttonIndex) {
    SettingsStore& st = s_.settings;
    switch (buttonIndex) {
    case 0:
        st.setBool(keys::kRatingPromptDeclinedToRate, true);
        st.synchronize();
        if (delegate_)
            delegate_->ratingPromptDidDeclineToRate(*this);
        break;
    case 1:
        rateApp();
        if (delegate_)
            delegate_->ratingPromptDidOptToRate(*this);
        break;
    case 2:
        st.setDouble(keys::kRatingPromptReminderRequestDate, s_.runLoop.now());
        st.synchronize();
        if (delegate_)
            delegate_->ratingPromptDidOptToRemindLater(*this);
        break;
    default: break;
    }
    alertVisible_ = false;
}

void RatingPrompt::rateApp() {
    s_.settings.setBool(keys::kRatingPromptRatedCurrentVersion, true);
    s_.settings.synchronize();

    if (s_.storeReview.reviewRequestAvailable())
        s_.storeReview.requestReview();
    else if (!openInAppStore_ && s_.storeReview.storeSheetAvailable())
        s_.storeReview.presentStoreSheet(appId_);
    else
        s_.urls.openUrl(storeReviewUrl());
}

std::string RatingPrompt::storeReviewUrl() const {
    const double version = systemVersion();
    const char* pattern = version < 7.0 ? kReviewUrlBefore7 : version < 8.0 ? kAppUrlOn7 : kReviewUrlFrom8;
    return replaceAll(pattern, "APP_ID", appId_);
}

double RatingPrompt::systemVersion() const { return leadingNumber(s_.device.systemVersion()); }

std::string RatingPrompt::appName() const {
    // The localised display name, then the plain one, then the bundle's name.
    if (auto localized = s_.strings.lookup("CFBundleDisplayName", kStringTable); localized && !localized->empty())
        return *localized;
    if (!bundle_.displayName.empty())
        return bundle_.displayName;
    return bundle_.name;
}

std::string RatingPrompt::text(const std::optional<std::string>& custom, const char* key) const {
    if (custom)
        return *custom;
    const auto found = s_.strings.lookup(key, kStringTable);
    return withObject(found && !found->empty() ? *found : std::string(key), appName());
}

std::string RatingPrompt::alertTitle() const { return text(customAlertTitle_, "Rate %@"); }

std::string RatingPrompt::alertMessage() const {
    return text(customAlertMessage_, "If you enjoy using %@, would you mind taking a moment to rate it? It won't take "
                                     "more than a minute. Thanks for your support!");
}

std::string RatingPrompt::alertCancelTitle() const { return text(customAlertCancelButtonTitle_, "No, Thanks"); }

std::string RatingPrompt::alertRateTitle() const { return text(customAlertRateButtonTitle_, "Rate %@"); }

std::string RatingPrompt::alertRateLaterTitle() const {
    return text(customAlertRateLaterButtonTitle_, "Remind me later");
}

} // namespace uke
