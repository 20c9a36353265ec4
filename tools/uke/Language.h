// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <string>

namespace uke::tool {

// "es" from "es", "es_ES.UTF-8" or "es-419"; empty when the text names no language.
std::string primaryLanguage(const std::string& code);

// The language of the process's locale, as the app would follow it: English where
// the locale names none (C, POSIX, or nothing set).
std::string environmentLanguage();

} // namespace uke::tool
