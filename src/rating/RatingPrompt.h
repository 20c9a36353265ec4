// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <memory>
#include <mutex>
#include <optional>
#include <string>

#include "platform/Services.h"
#include "rating/SerialQueue.h"

namespace uke {

class RatingPrompt;

// Told what the prompt does; every call comes on the main thread.
class RatingPromptDelegate {
public:
    virtual ~RatingPromptDelegate() = default;
    // Answering false keeps the alert (and the platform's review request) from showing.
    virtual bool ratingPromptShouldDisplayAlert(RatingPrompt&) { return true; }
    virtual void ratingPromptDidDisplayAlert(RatingPrompt&) {}
    virtual void ratingPromptDidDeclineToRate(RatingPrompt&) {}
    virtual void ratingPromptDidOptToRate(RatingPrompt&) {}
    virtual void ratingPromptDidOptToRemindLater(RatingPrompt&) {}
};

// Counts uses and days and, once the conditions are met, asks the player to rate
// the app: with the platform's own review request where there is one, otherwise
// with an alert of its own whose rate button leads to the store.
//
// Threads. appLaunched, appEnteredForeground and userDidSignificantEvent return at
// once and hand their work to a worker (the run loop's background worker and the
// prompt's own serial eventQueue). The settings store, though, is one object shared
// with the screens, and the Qt store (a QSettings) is not safe to use from two
// threads at once; a lock of our own would not cover the screens' writes. So the
// worker only passes the work back to the main thread, in order, and every store
// read and write, every delegate call and the alert happen there. That costs
// nothing: counting is a few store accesses and the network check does not block
// (the probe answers from a cached state and queues its fetch). Every other public
// operation is to be called on the main thread.
class RatingPrompt {
public:
    // What the platform's bundle would tell: the version counted against and the
    // names that fill the "%@" of the texts.
    struct Bundle {
        std::string version = UKE_VERSION;
        std::string displayName = "Ukulele Tuner";
        std::string name = "UkuleleTuner";
    };
    enum class StatusBarStyle { Default, LightContent, DarkContent };

    static constexpr const char* kStringTable = "RatingPromptLocalizable";

    explicit RatingPrompt(Services services);
    ~RatingPrompt();
    RatingPrompt(const RatingPrompt&) = delete;
    RatingPrompt& operator=(const RatingPrompt&) = delete;

    // Configuration.
    void setAppId(const std::string& appId);
    void setDaysUntilPrompt(double days);
    void setUsesUntilPrompt(long uses);
    // -1 keeps significant events out of the conditions.
    void setSignificantEventsUntilPrompt(long events);
    void setTimeBeforeReminding(double days);
    void setOpenInAppStore(bool open);
    // Debug: the alert at every launch, the conditions always met, and log lines.
    void setDebug(bool debug);
    void setCustomAlertTitle(const std::string& title);
    void setCustomAlertMessage(const std::string& message);
    void setCustomAlertCancelButtonTitle(const std::string& title);
    void setCustomAlertRateButtonTitle(const std::string& title);
    void setCustomAlertRateLaterButtonTitle(const std::string& title);
    // Not owned; null for none.
    void setDelegate(RatingPromptDelegate* delegate);
    void setUsesAnimation(bool animation);
    void setStatusBarStyle(StatusBarStyle style);
    void setModalOpen(bool open);
    // The texts come from one string table here, whichever bundle is asked for.
    void setAlwaysUseMainBundle(bool useMainBundle);
    void setBundle(Bundle bundle);

    // Events from the app.
    void appLaunched(bool canPromptForRating);
    void appEnteredForeground(bool canPromptForRating);
    void userDidSignificantEvent(bool canPromptForRating);
    void appWillResignActive();
    void tryToShowPrompt();
    void showPrompt();
    void forceShowPrompt(bool displayRateLaterButton);
    void rateApp();

    // The steps behind them, main thread only.
    void incrementUseCount();
    void incrementSignificantEventCount();
    void incrementAndRate(bool canPromptForRating);
    void incrementSignificantEventAndRate(bool canPromptForRating);
    bool ratingConditionsHaveBeenMet() const;
    bool ratingAlertIsAppropriate();
    bool connectedToNetwork();
    void showPromptWithChecks(bool withChecks, bool displayRateLaterButton);
    void showRatingAlert(bool displayRateLaterButton);
    // 0 cancel, 1 rate, 2 remind later; the alert is forgotten afterwards.
    void clickedButtonAtIndex(long buttonIndex);

    // Texts of the alert, custom or from the string table.
    std::string appName() const;
    std::string alertTitle() const;
    std::string alertMessage() const;
    std::string alertCancelTitle() const;
    std::string alertRateTitle() const;
    std::string alertRateLaterTitle() const;
    // The store address rateApp opens on this system version.
    std::string storeReviewUrl() const;
    bool alertVisible() const { return alertVisible_; }

    const std::string& appId() const { return appId_; }
    double daysUntilPrompt() const { return daysUntilPrompt_; }
    long usesUntilPrompt() const { return usesUntilPrompt_; }
    long significantEventsUntilPrompt() const { return significantEventsUntilPrompt_; }
    double timeBeforeReminding() const { return timeBeforeReminding_; }
    bool openInAppStore() const { return openInAppStore_; }
    bool debug() const { return debug_; }
    bool usesAnimation() const { return usesAnimation_; }
    StatusBarStyle statusBarStyle() const { return statusBarStyle_; }
    bool modalOpen() const { return modalOpen_; }
    bool alwaysUseMainBundle() const { return alwaysUseMainBundle_; }
    const Bundle& bundle() const { return bundle_; }

private:
    // Closed when the prompt goes, so that work still on its way is dropped.
    struct Gate {
        std::mutex mutex;
        bool open = true;
    };
    enum class Counter { Uses, SignificantEvents };

    void count(Counter counter);
    double storedDate(const std::string& key) const;
    // Hands `task` from a worker back to the main thread, unless the prompt has gone.
    RunLoop::Task toMainThread(RunLoop::Task task);
    std::string text(const std::optional<std::string>& custom, const char* key) const;
    double systemVersion() const;
    void debugLog(const std::string& line);

    Services s_;
    std::shared_ptr<Gate> gate_;
    SerialQueue eventQueue_;

    std::string appId_;
    double daysUntilPrompt_ = 30.0;
    long usesUntilPrompt_ = 20;
    long significantEventsUntilPrompt_ = -1;
    double timeBeforeReminding_ = 1.0;
    bool openInAppStore_ = true;
    bool debug_ = false;
    std::optional<std::string> customAlertTitle_, customAlertMessage_, customAlertCancelButtonTitle_,
        customAlertRateButtonTitle_, customAlertRateLaterButtonTitle_;
    RatingPromptDelegate* delegate_ = nullptr;
    bool usesAnimation_ = true;
    StatusBarStyle statusBarStyle_ = StatusBarStyle::Default;
    bool modalOpen_ = false;
    bool alwaysUseMainBundle_ = false;
    Bundle bundle_;

    bool alertVisible_ = false;
};

} // namespace uke
