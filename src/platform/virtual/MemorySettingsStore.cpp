// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/virtual/MemorySettingsStore.h"

#include <fstream>
#include <sstream>

namespace uke {

std::optional<SettingValue> MemorySettingsStore::value(const std::string& key) const {
    const auto it = values_.find(key);
    if (it == values_.end())
        return std::nullopt;
    return it->second;
}

std::vector<std::string> MemorySettingsStore::keys() const {
    std::vector<std::string> out;
    for (const auto& [k, v] : values_)
        out.push_back(k);
    return out;
}

bool IniFileSettingsStore::load(std::string& error) {
    std::ifstream in(path_, std::ios::binary);
    if (!in) {
        // A file that does not exist yet is an empty store, not an error.
        return true;
    }
    std::string line;
    int lineNo = 0;
    while (std::getline(in, line)) {
        ++lineNo;
        if (!line.empty() && line.back() == '\r')
            line.pop_back();
        if (line.empty() || line[0] == ';' || line[0] == '#' || line[0] == '[')
            continue;
        const auto eq = line.find('=');
        if (eq == std::string::npos || eq == 0) {
            error = "line " + std::to_string(lineNo) + " is not key=value";
            values_.clear();
            return false;
        }
        auto trim = [](std::string s) {
            const auto b = s.find_first_not_of(" \t");
            const auto e = s.find_last_not_of(" \t");
            return b == std::string::npos ? std::string{} : s.substr(b, e - b + 1);
        };
        values_[trim(line.substr(0, eq))] = settingFromText(trim(line.substr(eq + 1)));
    }
    return true;
}

void IniFileSettingsStore::synchronize() {
    MemorySettingsStore::synchronize();
    std::ofstream out(path_, std::ios::binary | std::ios::trunc);
    if (!out) {
        writeError_ = true;
        return;
    }
    out << "[General]\n";
    for (const auto& [k, v] : values_)
        out << k << '=' << settingToText(v) << '\n';
    writeError_ = !out.good();
}

} // namespace uke
