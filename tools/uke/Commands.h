// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <ostream>
#include <string>
#include <vector>

namespace uke::tool {

// Each subcommand takes the words after its name and writes to out and err.
// Exit status: 0 done, 1 nothing to show (for example no chord shape), 2 bad input.
using Words = std::vector<std::string>;

int cmdTunings(const Words& args, std::ostream& out, std::ostream& err);
int cmdAnalyse(const Words& args, std::ostream& out, std::ostream& err);
int cmdListen(const Words& args, std::ostream& out, std::ostream& err);
int cmdTone(const Words& args, std::ostream& out, std::ostream& err);
int cmdChord(const Words& args, std::ostream& out, std::ostream& err);
int cmdChords(const Words& args, std::ostream& out, std::ostream& err);
int cmdScreen(const Words& args, std::ostream& out, std::ostream& err);

// Runs `uke WORDS...`.
int run(const Words& words, std::ostream& out, std::ostream& err);

} // namespace uke::tool
