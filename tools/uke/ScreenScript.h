// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <string>
#include <vector>

#include "app/Actions.h"

namespace uke::tool {

// One --do value: an action of the app's table with its arguments, or a wait on
// the virtual clock, which is the tool's own.
struct Step {
    std::string text; // as given, for messages
    const actions::Action* action = nullptr;
    std::vector<double> args;
    double wait = 0.0;
};

// Reads one --do value; false with the whole message (naming the option) in `error`.
bool parseStep(const std::string& text, Step& step, std::string& error);

} // namespace uke::tool
