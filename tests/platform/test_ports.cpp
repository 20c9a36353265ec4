// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <limits>
#include <memory>

#include "platform/VirtualRunLoop.h"
#include "platform/virtual/MemorySettingsStore.h"

namespace uke {
namespace {

TEST(SettingsStore, TypingRulesOfTheStore) {
    MemorySettingsStore s;
    EXPECT_EQ(s.integerForKey("missing"), 0);
    EXPECT_EQ(s.floatForKey("missing"), 0.0f);
    EXPECT_EQ(s.stringForKey("missing"), "");
    s.setBool("b", true);
    EXPECT_EQ(s.integerForKey("b"), 1);
    EXPECT_EQ(s.floatForKey("b"), 1.0f);
    s.setInteger("i", 5);
    EXPECT_EQ(s.floatForKey("i"), 5.0f);
    EXPECT_TRUE(s.boolForKey("i"));
    s.setDouble("d", 4.6);
    EXPECT_EQ(s.integerForKey("d"), 4) << "integers truncate";
    s.setString("v", "1.0");
    EXPECT_EQ(s.stringForKey("v"), "1.0");
    EXPECT_EQ(s.integerForKey("v"), 1);
    s.setString("junk", "abc");
    EXPECT_EQ(s.integerForKey("junk"), 0);
    // Found by fuzzing a damaged settings file; stored numbers out of range are the
    // settings panel's test.
    s.setString("huge", "1.1e67");
    EXPECT_EQ(s.integerForKey("huge"), std::numeric_limits<long>::max());
}

// Through a settings file written and read again, text stays the same text whatever
// it looks like and a number stays a number.
TEST(SettingsStore, ValuesComeBackFromTheFileAsTheyWent) {
    using namespace std::string_literals;
    const SettingValue values[] = {true,     false,    440L,     -3L,         1700000000.25, 2.0,       1.1,
                                   "1.0.0"s, "1.10"s,  "1.0"s,   "007"s,      "1e3"s,        "nan"s,    ""s,
                                   "true"s,  " pad "s, "a\nb"s, "\"q\"\\"s, "\"1.0"s};
    const std::string path = ::testing::TempDir() + "round-trip.ini";
    IniFileSettingsStore written(path), read(path);
    for (size_t i = 0; i < std::size(values); ++i)
        written.setValue(std::to_string(i), values[i]);
    written.synchronize();
    std::string error;
    ASSERT_TRUE(read.load(error)) << error;
    for (size_t i = 0; i < std::size(values); ++i)
        EXPECT_EQ(read.value(std::to_string(i)), values[i]) << settingToText(values[i]);
}

// The settings file (read, written back, refused when damaged) is pinned by the tool's golden outputs.
TEST(VirtualRunLoop, TimersLandOnExactTimesInOrder) {
    VirtualRunLoop loop;
    std::vector<std::string> seen;
    int ticks = 0;
    loop.scheduleRepeating(0.01, [&] { ++ticks; });
    loop.performAfterDelay(0.015, [&] { seen.push_back("a@" + std::to_string(ticks)); });
    loop.performAfterDelay(0.0, [&] {
        seen.push_back("zero");
        loop.performAfterDelay(0.0, [&] { seen.push_back("nested"); });
    });
    loop.advanceTo(1.0);
    EXPECT_EQ(ticks, 100);
    EXPECT_EQ(seen, (std::vector<std::string>{"zero", "nested", "a@1"}));
    EXPECT_DOUBLE_EQ(loop.elapsed(), 1.0); // a shifted epoch: the rating prompt's reminder test
}

// A clock held back for a long time replays only the last stretch of ticks, but
// every delayed message in the gap runs at its own time, ticks or not.
TEST(VirtualRunLoop, AHeldBackClockDropsOldTicksButNoMessage) {
    VirtualRunLoop loop;
    std::vector<double> ticks, messages;
    loop.scheduleRepeating(0.01, [&] { ticks.push_back(loop.elapsed()); });
    for (double at : {15.0, 29.5, 30.0})
        loop.performAfterDelay(at, [&] { messages.push_back(loop.elapsed()); });
    loop.advanceTo(30.0, 29.0);
    EXPECT_EQ(messages, (std::vector<double>{15.0, 29.5, 30.0}));
    ASSERT_EQ(ticks.size(), 101u);
    EXPECT_DOUBLE_EQ(ticks.front(), 29.0);
    // A start of the replay before the clock's own time drops nothing.
    loop.advanceTo(30.5, 10.0);
    EXPECT_EQ(ticks.size(), 151u);
}

// A delayed message or a timer made by an object that has gone never runs.
TEST(Lifetime, GuardedTasksStopWithTheirOwner) {
    VirtualRunLoop loop;
    int ticks = 0, messages = 0;
    auto owner = std::make_unique<Lifetime>();
    loop.scheduleRepeating(0.01, owner->guard([&] { ++ticks; }));
    loop.performAfterDelay(0.5, owner->guard([&] { ++messages; }));
    loop.performAfterDelay(2.0, owner->guard([&] { ++messages; }));
    loop.advanceTo(1.0);
    owner.reset();
    loop.advanceTo(3.0);
    EXPECT_EQ(ticks, 100);
    EXPECT_EQ(messages, 1);
}

} // namespace
} // namespace uke
