#include <gtest/gtest.h>

#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <fstream>

#include "platform/virtual/MemorySettingsStore.h"
#include "platform/virtual/TsStringTable.h"
#include "platform/virtual/VirtualRunLoop.h"

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
    s.wipeDomain();
    EXPECT_TRUE(s.keys().empty());
}

TEST(SettingsStore, TextFormKeepsTypes) {
    for (const SettingValue& v : {SettingValue{true}, SettingValue{false}, SettingValue{440L}, SettingValue{-3L},
                                  SettingValue{1700000000.25}, SettingValue{2.0}, SettingValue{std::string("1.0.0")}}) {
        EXPECT_EQ(settingFromText(settingToText(v)), v) << settingToText(v);
    }
}

TEST(SettingsStore, IniFileRoundTripAndDamage) {
    const auto dir = std::filesystem::temp_directory_path() / ("uke-ini-" + std::to_string(::getpid()));
    std::filesystem::create_directories(dir);
    const std::string path = (dir / "s.ini").string();
    std::string error;
    {
        IniFileSettingsStore s(path);
        ASSERT_TRUE(s.load(error)) << "a missing file is an empty store";
        s.setBool("NewLaunchOrvel", true);
        s.setInteger("savedA4Calibration", 442);
        s.synchronize();
    }
    {
        IniFileSettingsStore s(path);
        ASSERT_TRUE(s.load(error));
        EXPECT_EQ(s.integerForKey("NewLaunchOrvel"), 1);
        EXPECT_EQ(s.integerForKey("savedA4Calibration"), 442);
    }
    std::ofstream(path) << "[General]\nthis line is broken\n";
    IniFileSettingsStore damaged(path);
    EXPECT_FALSE(damaged.load(error));
    EXPECT_NE(error.find("line 2"), std::string::npos);
    EXPECT_TRUE(damaged.keys().empty());
    std::filesystem::remove_all(dir);
}

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
    EXPECT_DOUBLE_EQ(loop.elapsed(), 1.0);
    const double before = loop.now();
    loop.shiftEpoch(86400.0);
    EXPECT_DOUBLE_EQ(loop.now() - before, 86400.0);
}

TEST(StringTables, EveryBuiltInLanguageParsesAndEnglishIsTheFallback) {
    const TsStringTable* en = builtInStrings("en");
    ASSERT_NE(en, nullptr);
    EXPECT_EQ(en->localized("HzTitle"), "Hz");
    EXPECT_EQ(en->localized("NoSuchKey"), "");
    EXPECT_EQ(&stringsForLanguage("xx"), en);
    TsStringTable t;
    EXPECT_TRUE(t.parse(R"(<TS language="zz"><context><name>Localizable</name>
        <message><source>a &amp; b</source><translation>x &lt; y</translation></message>
        <message><source>later</source><translation type="unfinished"></translation></message>
        </context></TS>)"));
    EXPECT_EQ(t.language(), "zz");
    EXPECT_EQ(t.localized("a & b"), "x < y");
    EXPECT_FALSE(t.lookup("later", "Localizable"));
    EXPECT_FALSE(TsStringTable().parse("not xml at all"));
}

} // namespace
} // namespace uke
