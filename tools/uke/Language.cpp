// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#include "Language.h"

#include <cctype>
#include <cstdlib>

namespace uke::tool {

std::string primaryLanguage(const std::string& code) {
    std::string lang;
    for (const char c : code) {
        if (c == '_' || c == '-' || c == '.' || c == '@')
            break;
        lang += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    }
    if (lang.size() < 2 || lang.size() > 3)
        return {};
    for (const char c : lang)
        if (c < 'a' || c > 'z')
            return {};
    return lang;
}

std::string environmentLanguage() {
    for (const char* name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        const char* v = std::getenv(name);
        if (v && *v) {
            const std::string lang = primaryLanguage(v);
            // The first one set decides, as in setlocale; C and POSIX name no language.
            return lang.empty() || lang == "posix" ? "en" : lang;
        }
    }
    return "en";
}

} // namespace uke::tool
