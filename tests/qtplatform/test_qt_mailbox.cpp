// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <QThread>
#include <QThreadPool>
#include <atomic>
#include <thread>
#include <vector>

#include "support/QtApp.h"
#include "platform/qt/Mailbox.h"

namespace uke {
namespace {

// The audio ports' calls onto their threads, and the run loop's hand-overs, rest
// on these: a call runs there and is finished when it returns, posts run in the
// order given, and callers on several threads at once each get their own answer.
// Under the thread sanitizer this also shows the hand-over is one it can see.
TEST(Mailbox, CallsRunOnTheOwnersThreadInOrderAndReturnWhenDone) {
    test::ensureQtApp();
    QThread thread;
    auto* mailbox = new Mailbox;
    mailbox->moveToThread(&thread);
    QObject::connect(&thread, &QThread::finished, mailbox, &QObject::deleteLater);
    thread.start();

    std::vector<int> order; // written on the mailbox's thread only
    for (int i = 0; i < 5; ++i)
        mailbox->post([&order, i] { order.push_back(i); });
    QThread* ranOn = nullptr;
    mailbox->call([&] {
        ranOn = QThread::currentThread();
        order.push_back(5);
    });
    EXPECT_EQ(ranOn, &thread);
    EXPECT_EQ(order, (std::vector<int>{0, 1, 2, 3, 4, 5}));

    std::vector<int> answers(4, 0);
    std::vector<std::thread> callers;
    for (int c = 0; c < 4; ++c)
        callers.emplace_back([&, c] {
            for (int k = 0; k < 50; ++k)
                mailbox->call([&, c] { answers[static_cast<size_t>(c)] += 1; });
        });
    for (auto& t : callers)
        t.join();
    EXPECT_EQ(answers, (std::vector<int>(4, 50)));

    // A call made on the owner's own thread cannot wait for itself: it runs at once.
    bool nested = false;
    mailbox->call([&] { mailbox->call([&] { nested = true; }); });
    EXPECT_TRUE(nested);

    thread.quit();
    thread.wait();
}

TEST(Mailbox, PoolTasksEachRunOnce) {
    // The count is atomic so that the thread sanitizer, which cannot see inside the
    // pool's own locks, sees the tasks' writes happen before the check.
    std::atomic<int> runs{0};
    std::vector<int> seen(20, 0);
    for (int i = 0; i < 20; ++i)
        runInPool([&, i] {
            seen[static_cast<size_t>(i)] += 1;
            ++runs;
        });
    QThreadPool::globalInstance()->waitForDone();
    EXPECT_EQ(runs.load(), 20);
    EXPECT_EQ(seen, std::vector<int>(20, 1));
}

} // namespace
} // namespace uke
