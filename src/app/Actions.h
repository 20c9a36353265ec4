// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace uke {

class TunerApp;

// Every action a player (or a script) can take on the two screens, once: its
// name, what it is handed, when it is refused, and the call. The Qt views, the
// page and `uke screen --do` all go through here, so a bad name or argument is
// refused in one place, and a new action touches this table and the view that
// shows its control, nothing else.
namespace actions {

enum class Screen { Tuner, Chords };

// What a control hands an action: nothing, a number from a range, a whole
// number (a picker's row), or on/off (as 1 or 0).
enum class Argument { None, Number, Whole, OnOff };

struct Action {
    Screen screen;
    std::string_view name; // the controller's own name
    // The words scripts take it by ("slider", "switch beep"); empty when a script
    // cannot take it. Words sharing their first word make one group.
    std::string_view word;
    Argument argument;
    int arity; // how many arguments
    // Why it cannot run now with `args` (already of the right count and kind);
    // empty when it can.
    std::string (*refusal)(const TunerApp&, std::span<const double> args);
    void (*run)(TunerApp&, std::span<const double> args);
};

const Action* find(Screen screen, std::string_view name);

// Runs an action by name; returns why it was refused (and logs it), or empty
// when it ran. Arguments come from outside: a wrong count, a number that is
// not finite, a fraction where a row is wanted, are all refused.
std::string run(TunerApp& app, Screen screen, std::string_view name, std::span<const double> args);

// A script's line ("slider 4.6", "switch chart on") as an action and its
// arguments, or why it is none. `unknown` is set when the first word names no
// action at all.
struct Scripted {
    const Action* action = nullptr;
    std::vector<double> args;
    std::string error;
    bool unknown = false;
};
Scripted parse(const std::string& text);
// The script's words with their arguments: "next, previous, ..., switch beep|strings|chart on|off".
std::string scriptUsage();
// A script's number: the whole word, and finite ("nan", "1e999" and "4x" are none).
bool parseNumber(const std::string& word, double& out);
// Why `action` cannot run now with `args`, checking the count, kind and state; empty when it can.
std::string refusal(const TunerApp& app, const Action& action, std::span<const double> args);

} // namespace actions
} // namespace uke
