// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "platform/StringTable.h"

namespace uke {

// String tables read from Qt Linguist sources: each <context> is a table, each
// message's <source> the key and its <translation> the text. An unfinished or
// empty translation counts as missing, so the lookup gives the empty default.
class TsStringTable : public StringTable {
public:
    // False when the text is not a Linguist file.
    bool parse(std::string_view xml);
    std::optional<std::string> lookup(const std::string& key, const std::string& table) const override;
    const std::string& language() const { return language_; }
    const std::map<std::string, std::map<std::string, std::string>>& tables() const { return tables_; }

private:
    std::string language_;
    std::map<std::string, std::map<std::string, std::string>> tables_;
};

// The app's own tables, built into the program: "en", "es", ... Unknown codes give
// nothing.
const TsStringTable* builtInStrings(const std::string& language);
std::vector<std::string> builtInLanguages();

// The table for `language`, with English filling in languages the app lacks.
const TsStringTable& stringsForLanguage(const std::string& language);

} // namespace uke
