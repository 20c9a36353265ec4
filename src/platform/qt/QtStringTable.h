// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QString>
#include <QStringList>
#include <QTranslator>

#include "platform/StringTable.h"

namespace uke {

// The app's string tables as compiled by lrelease: one .qm file per language, each
// <context> of the Linguist source a table. A key the file lacks (or leaves
// unfinished) reads as missing, so the caller's empty default shows.
class QtStringTable : public StringTable {
public:
    // Loads `directory`/uketuner_`language`.qm; false when there is no such file.
    bool load(const QString& language, const QString& directory = QStringLiteral(":/i18n"));
    std::optional<std::string> lookup(const std::string& key, const std::string& table) const override;
    // The language loaded, empty when none was.
    const QString& language() const { return language_; }
    // Makes the views' own texts (qsTr) come from this table too, in place of the
    // table installed before.
    void installForViews();

private:
    QTranslator translator_;
    QString language_;
};

// "es" from "es", "es_ES.UTF-8", "es-419" or "ES"; empty when `code` names no language.
QString primaryLanguage(const QString& code);

// The first of `preferred` the app has a table for, else "en".
QString chooseLanguage(const QStringList& preferred, const QString& directory = QStringLiteral(":/i18n"));

// The table of a language code; empty `language`: the system's preferred languages.
// A language the app lacks gives English. Tables live for the rest of the process.
QtStringTable& qtStringsForLanguage(const QString& language);

} // namespace uke
