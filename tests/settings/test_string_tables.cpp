// The app's string tables: every language complete, formats intact, fallbacks.
#include <gtest/gtest.h>

#include "platform/virtual/TsStringTable.h"
#include "settings/NoteNaming.h"

namespace uke {
namespace {

size_t count(const std::string& text, const std::string& what) {
    size_t n = 0;
    for (size_t p = text.find(what); p != std::string::npos; p = text.find(what, p + what.size()))
        ++n;
    return n;
}

const TsStringTable& english() {
    const TsStringTable* en = builtInStrings("en");
    EXPECT_NE(en, nullptr);
    static const TsStringTable empty;
    return en ? *en : empty;
}

// The six languages the app speaks are the tuner naming tests' parameters.
class EveryLanguage : public ::testing::TestWithParam<std::string> {
protected:
    const TsStringTable& table() const { return *builtInStrings(GetParam()); }
};

TEST_P(EveryLanguage, HasEveryKeyEnglishHasAndNoOthersWithThePlaceholdersIntact) {
    ASSERT_FALSE(english().tables().empty());
    for (const auto& [context, messages] : english().tables()) {
        for (const auto& [key, text] : messages) {
            const std::string translated = table().localized(key, context);
            EXPECT_NE(translated, "") << GetParam() << " lacks " << context << "/" << key;
            EXPECT_EQ(count(translated, "%@"), count(text, "%@")) << GetParam() << " " << key << ": " << translated;
            EXPECT_EQ(count(translated, "%"), count(text, "%")) << GetParam() << " " << key << ": " << translated;
        }
    }
    for (const auto& [context, messages] : table().tables())
        for (const auto& [key, text] : messages)
            EXPECT_TRUE(english().lookup(key, context).has_value())
                << GetParam() << " has " << context << "/" << key << ", which English does not";
}

INSTANTIATE_TEST_SUITE_P(Tables, EveryLanguage, ::testing::ValuesIn(builtInLanguages()),
                         [](const ::testing::TestParamInfo<std::string>& info) { return info.param; });

// A language the app lacks falls back to English: the golden screen outputs (--lang xx).
TEST(StringTables, UnfinishedAndEmptyTranslationsCountAsMissing) {
    TsStringTable t;
    ASSERT_TRUE(t.parse(R"(<TS version="2.1" language="es"><context><name>Localizable</name>
        <message><source>Done</source><translation>Listo</translation></message>
        <message><source>Lang0</source><translation type="unfinished">Idioma</translation></message>
        <message><source>Lang1</source><translation></translation></message>
        <message><source>A&amp;B</source><translation>A y B</translation></message>
        </context></TS>)"));
    EXPECT_EQ(t.localized("Done"), "Listo");
    EXPECT_EQ(t.lookup("Lang0", "Localizable"), std::nullopt);
    EXPECT_EQ(t.lookup("Lang1", "Localizable"), std::nullopt);
    EXPECT_EQ(t.localized("A&B"), "A y B");
    EXPECT_FALSE(TsStringTable{}.parse("not a linguist file"));
}

// The note formats of every language are filled on the tuner screen (the naming tests).
TEST(ObjectFormat, FillsEveryObjectPlaceholder) {
    EXPECT_EQ(fillObjectFormat("", "4"), "");
    EXPECT_EQ(fillObjectFormat("%@-%@", "4"), "4-4");
    EXPECT_EQ(fillObjectFormat("100%% %@", "4"), "100% 4");
    EXPECT_EQ(fillObjectFormat("50%", "4"), "50%");
    EXPECT_EQ(fillObjectFormat("%d", "4"), "%d");
}

} // namespace
} // namespace uke
