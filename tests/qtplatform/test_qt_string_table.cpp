// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
// The app's compiled string tables (lrelease output in the resources) against
// the Linguist sources they come from.
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

#include "platform/qt/QtStringTable.h"
#include "platform/virtual/TsStringTable.h"
#include "support/QtApp.h"

namespace uke {
namespace {

class CompiledTable : public ::testing::TestWithParam<std::string> {};

TEST_P(CompiledTable, GivesWhatTheSourceSaysForEveryKeyAndEveryTextOfTheViews) {
    test::ensureQtApp();
    QtStringTable compiled;
    ASSERT_TRUE(compiled.load(QString::fromStdString(GetParam()))) << "no .qm for " << GetParam();
    const TsStringTable* source = builtInStrings(GetParam());
    ASSERT_NE(source, nullptr);
    size_t keys = 0;
    for (const auto& [context, messages] : source->tables()) {
        for (const auto& [key, text] : messages) {
            EXPECT_EQ(compiled.localized(key, context), text) << GetParam() << " " << context << "/" << key;
            ++keys;
        }
    }
    EXPECT_GT(keys, 50u);
    EXPECT_EQ(compiled.lookup("NoSuchKey", "Localizable"), std::nullopt);
    EXPECT_EQ(compiled.localized("HzTitle", "NoSuchTable"), "");

    // The views' own words (qsTr in the QML files, one context per file) are there
    // too: a caption added to a panel without its translations fails here.
    const QDir qml(QStringLiteral(UKE_SOURCE_DIR "/src/ui/qml"));
    const QRegularExpression call(QStringLiteral(R"re(qsTr\("([^"]+)"\))re"));
    size_t texts = 0;
    for (const QString& name : qml.entryList({"*.qml"}, QDir::Files)) {
        QFile file(qml.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << name.toStdString();
        const std::string context = QFileInfo(name).completeBaseName().toStdString();
        for (const auto& match : call.globalMatch(QString::fromUtf8(file.readAll()))) {
            const std::string words = match.captured(1).toStdString();
            EXPECT_NE(compiled.localized(words, context), "") << GetParam() << " " << context << "/" << words;
            ++texts;
        }
    }
    EXPECT_GT(texts, 5u);
}

INSTANTIATE_TEST_SUITE_P(EveryLanguage, CompiledTable, ::testing::ValuesIn(builtInLanguages()),
                         [](const ::testing::TestParamInfo<std::string>& info) { return info.param; });

TEST(QtStringTable, ChoosesTheFirstLanguageItHas) {
    test::ensureQtApp();
    for (const auto& [locale, language] : std::initializer_list<std::pair<const char*, const char*>>{
             {"es_ES.UTF-8", "es"}, {"pt-BR", "pt"}, {"DE", "de"}, {"sr@latin", "sr"}, {"C", ""}, {"12", ""}, {"", ""}})
        EXPECT_EQ(primaryLanguage(locale), language) << locale;

    EXPECT_EQ(chooseLanguage({"fr-CA", "de"}), "fr");
    EXPECT_EQ(chooseLanguage({"xx", "pt-BR", "it_IT"}), "it");
    EXPECT_EQ(chooseLanguage({"ja"}), "en");
    EXPECT_EQ(chooseLanguage({}), "en");

    EXPECT_EQ(qtStringsForLanguage("ru_RU").language(), "ru");
    EXPECT_EQ(qtStringsForLanguage("ja").language(), "en");
    EXPECT_EQ(&qtStringsForLanguage("ru"), &qtStringsForLanguage("ru-RU"));
    QtStringTable none;
    EXPECT_FALSE(none.load("xx"));
    EXPECT_EQ(none.localized("HzTitle"), "");
}

} // namespace
} // namespace uke
