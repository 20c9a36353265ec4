// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#include <atomic>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>

#include "RatingFixture.h"

namespace uke::test {
namespace {

using Counting = RatingFixture;

// What a first use stores, and that later uses keep its date, are in the golden
// screen outputs (a settings file run twice).

// A user who rated, declined and asked for a reminder on the last version: the
// first use or event of this one starts afresh, an event deliberately unlike a use
// (no first-use date and no use counted) until the next use starts the clock.
TEST_F(Counting, ANewVersionStartsAfreshOnAUseOrAnEvent) {
    for (bool use : {true, false}) {
        SCOPED_TRACE(use ? "use" : "event");
        seedMet(40.0, 17);
        store().setString(keys::kRatingPromptCurrentVersion, "0.9");
        store().setInteger(keys::kRatingPromptSignificantEventCount, 4);
        store().setBool(keys::kRatingPromptRatedCurrentVersion, true);
        store().setBool(keys::kRatingPromptDeclinedToRate, true);
        store().setDouble(keys::kRatingPromptReminderRequestDate, now() - kDay);
        use ? rating->incrementUseCount() : rating->incrementSignificantEventCount();
        EXPECT_EQ(store().stringForKey(keys::kRatingPromptCurrentVersion), UKE_VERSION);
        EXPECT_FALSE(store().boolForKey(keys::kRatingPromptRatedCurrentVersion));
        EXPECT_FALSE(store().boolForKey(keys::kRatingPromptDeclinedToRate));
        EXPECT_EQ(store().doubleForKey(keys::kRatingPromptReminderRequestDate), 0.0);
        EXPECT_EQ(store().doubleForKey(keys::kRatingPromptFirstUseDate), use ? now() : 0.0);
        EXPECT_EQ(store().integerForKey(keys::kRatingPromptUseCount), use ? 1 : 0);
        EXPECT_EQ(store().integerForKey(keys::kRatingPromptSignificantEventCount), use ? 0 : 1);
    }
    rating->incrementUseCount();
    EXPECT_DOUBLE_EQ(store().doubleForKey(keys::kRatingPromptFirstUseDate), now());
    EXPECT_EQ(store().integerForKey(keys::kRatingPromptUseCount), 1);
    EXPECT_EQ(store().integerForKey(keys::kRatingPromptSignificantEventCount), 1);
}

TEST_F(Counting, LaunchCountsOnceTheLoopRunsAndPromptsOnceTheConditionsHold) {
    rating->appLaunched(true);
    EXPECT_FALSE(store().hasKey(keys::kRatingPromptUseCount)) << "not counted on the caller's stack";
    runPending();
    seedMet(2.0, 1);
    rating->appLaunched(false);
    runPending();
    EXPECT_EQ(platform.alerts.presentCount, 0) << "the caller said not now";
    EXPECT_EQ(store().integerForKey(keys::kRatingPromptUseCount), 2);
    rating->appLaunched(true);
    runPending();
    EXPECT_EQ(platform.alerts.presentCount, 1);

    // In debug a launch shows the alert, even when told not to, and counts nothing.
    platform.alerts.press(1);
    rating->setDebug(true);
    rating->appLaunched(false);
    runPending();
    EXPECT_EQ(platform.alerts.presentCount, 2);
    EXPECT_EQ(store().integerForKey(keys::kRatingPromptUseCount), 3);
}

TEST_F(Counting, WorkStillQueuedWhenThePromptGoesIsDropped) {
    rating->appLaunched(true);
    rating->appEnteredForeground(true);
    rating->userDidSignificantEvent(true);
    rating.reset();
    runPending();
    EXPECT_TRUE(store().keys().empty());
}

// Background work on real threads, the main thread being the test's own. Tasks
// run without the lock: a worker may hold a lock of the prompt's while it queues.
class ThreadedRunLoop : public RunLoop {
public:
    ~ThreadedRunLoop() override {
        for (auto& t : workers_)
            t.join();
    }
    void performAfterDelay(double, Task task) override {
        std::lock_guard lock(mutex_);
        main_.push_back(std::move(task));
    }
    void scheduleRepeating(double, Task) override {}
    double now() const override { return 1'700'000'000.0; }
    void dispatchBackground(Task task) override { workers_.emplace_back(std::move(task)); }
    void runMainUntil(const std::function<bool()>& done) {
        while (!done()) {
            std::unique_lock lock(mutex_);
            std::deque<Task> due = std::move(main_);
            main_.clear();
            lock.unlock();
            for (Task& t : due)
                t();
            std::this_thread::yield();
        }
    }

private:
    std::mutex mutex_;
    std::deque<Task> main_;
    std::vector<std::thread> workers_;
};

TEST(CountingOnWorkers, EventsArriveOnTheMainThreadInCallOrder) {
    VirtualPlatform platform;
    ThreadedRunLoop loop;
    Services s = platform.services();
    Services threaded{loop,     s.settings, s.strings, s.log,         s.device, s.capture,     s.output,
                      s.sounds, s.urls,     s.network, s.storeReview, s.alerts, s.idleTimer, s.resourcePath};
    auto rating = std::make_unique<RatingPrompt>(threaded);
    struct OnMain : RatingPromptDelegate {
        const std::thread::id expected = std::this_thread::get_id();
        std::atomic<bool> offMain{false};
        bool ratingPromptShouldDisplayAlert(RatingPrompt&) override {
            offMain = offMain || std::this_thread::get_id() != expected;
            return false;
        }
    } delegate;
    rating->setDelegate(&delegate);
    rating->setDebug(true); // conditions met, so every count asks the delegate

    constexpr int kRounds = 40;
    for (int i = 0; i < kRounds; ++i) {
        rating->appEnteredForeground(true);
        rating->userDidSignificantEvent(true);
    }
    const SettingsStore& st = platform.memoryStore;
    loop.runMainUntil([&] { return st.integerForKey(keys::kRatingPromptSignificantEventCount) == kRounds; });
    EXPECT_EQ(st.integerForKey(keys::kRatingPromptUseCount), kRounds);
    EXPECT_FALSE(delegate.offMain);
    std::vector<std::string> want;
    for (int i = 1; i <= kRounds; ++i)
        for (const char* what : {"Use count: ", "Significant event count: "})
            want.insert(want.end(), {"RATINGPROMPT Tracking version: " UKE_VERSION,
                                     "RATINGPROMPT " + std::string(what) + std::to_string(i)});
    EXPECT_EQ(platform.log.lines, want);
}

} // namespace
} // namespace uke::test
