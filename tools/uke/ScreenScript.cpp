// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#include "ScreenScript.h"

#include <sstream>

namespace uke::tool {

bool parseStep(const std::string& text, Step& step, std::string& error) {
    step.text = text;
    std::istringstream in(text);
    std::vector<std::string> w;
    for (std::string word; in >> word;)
        w.push_back(word);
    if (!w.empty() && w[0] == "wait") {
        if (w.size() != 2) {
            error = "--do '" + text + "': expected 'wait SECONDS'";
            return false;
        }
        if (!actions::parseNumber(w[1], step.wait)) {
            error = "--do '" + text + "': '" + w[1] + "' is not a number";
            return false;
        }
        if (step.wait < 0 || step.wait > 3600) {
            error = "--do '" + text + "': wait takes 0 to 3600";
            return false;
        }
        return true;
    }
    actions::Scripted scripted = actions::parse(text);
    if (scripted.unknown)
        error = scripted.error + " (" + actions::scriptUsage() + ", wait SECONDS)";
    else if (w.empty())
        error = "--do " + scripted.error;
    else if (!scripted.action)
        error = "--do '" + text + "': " + scripted.error;
    step.action = scripted.action;
    step.args = std::move(scripted.args);
    return step.action != nullptr;
}

} // namespace uke::tool
