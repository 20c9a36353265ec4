// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/Actions.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <sstream>

#include "app/TunerApp.h"
#include "base/TuningCatalogue.h"
#include "chords/ChordsViewController.h"
#include "platform/Log.h"
#include "tuner/ViewController.h"

namespace uke::actions {

namespace {

using Args = std::span<const double>;

std::string none(const TunerApp&, Args) { return {}; }

std::string plain(double v) {
    char text[32];
    std::snprintf(text, sizeof text, "%g", v);
    return text;
}

std::string rangeText(const char* what, double lo, double hi) {
    return std::string(what) + " " + plain(lo) + " to " + plain(hi);
}

std::string range(const char* what, double lo, double hi, double v) {
    if (v >= lo && v <= hi)
        return {};
    return rangeText(what, lo, hi);
}

// A picker's row: whole, and one of its rows.
std::string rows(double count, double v) {
    if (v >= 0 && v < count && v == std::floor(v))
        return {};
    return rangeText("the picker has rows", 0, count - 1);
}

// The controls' ranges are the screen's own outlets', the same on every device.
std::string sliderRange(const TunerApp& app, Args a) {
    const Slider& s = app.tunerScreen().micSensitivitySlider;
    return range("slider takes", s.minimum, s.maximum, a[0]);
}

std::string stepperRange(const TunerApp& app, Args a) {
    const Stepper& s = app.tunerScreen().setFrequencyValueStepper;
    return range("stepper takes", s.minimum, s.maximum, a[0]);
}

std::string languageRow(const TunerApp& app, Args a) {
    return rows(static_cast<double>(app.tunerScreen().establecerIdioma.rows.size()), a[0]);
}

// The arrows are hidden at the ends of the list; a script reaching past them is refused.
std::string tuningAfter(const TunerApp& app, Args) {
    const int64_t t = app.state().chosenTuning;
    return TuningCatalogue::contains(t + 1) ? std::string{} : "there is no tuning after " + std::to_string(t);
}

std::string tuningBefore(const TunerApp& app, Args) {
    const int64_t t = app.state().chosenTuning;
    return TuningCatalogue::contains(t - 1) ? std::string{} : "there is no tuning before " + std::to_string(t);
}

std::string chordsOpen(const TunerApp& app, Args) {
    return app.chordsOpen() ? std::string{} : "the chord library is not open";
}

std::string chordPickerRow(const TunerApp& app, Args a) {
    const ChordsViewController* chords = app.chords();
    if (!chords)
        return "the chord library is not open";
    const ChordScreenModel& screen = app.chordScreen();
    const double tag = a[0];
    if (tag != screen.selectRootChord.tag && tag != screen.selectVariant.tag)
        return "there is no chord picker " + plain(tag);
    return rows(static_cast<double>(chords->numberOfRowsInComponent(static_cast<int64_t>(tag))), a[1]);
}

std::string panelOpen(const TunerApp& app, Args) {
    return app.panel() == TunerApp::Panel::None ? "no panel is open" : "";
}

ViewController& tuner(TunerApp& app) { return app.tuner(); }

// The table is written with plain function pointers so that it is built at
// compile time and an action's whole row reads on one line.
#define TUNER(call) [](TunerApp& app, Args) { tuner(app).call(); }
#define PANEL_REFUSAL(panel) [](const TunerApp& app, Args) { return app.panelRefusal(TunerApp::Panel::panel); }
#define OPEN(panel) [](TunerApp& app, Args) { app.openPanel(TunerApp::Panel::panel); }

const std::vector<Action> kTable = {
    // The tuner screen.
    {Screen::Tuner, "showNextTuning", "next", Argument::None, 0, tuningAfter, TUNER(showNextTuning)},
    {Screen::Tuner, "showPreviousTuning", "previous", Argument::None, 0, tuningBefore, TUNER(showPreviousTuning)},
    {Screen::Tuner, "viewWillAppear", "appear", Argument::None, 0, none, TUNER(viewWillAppear)},
    {Screen::Tuner, "play1stStringSound", "", Argument::None, 0, none, TUNER(play1stStringSound)},
    {Screen::Tuner, "play2ndStringSound", "", Argument::None, 0, none, TUNER(play2ndStringSound)},
    {Screen::Tuner, "play3rdStringSound", "", Argument::None, 0, none, TUNER(play3rdStringSound)},
    {Screen::Tuner, "play4thStringSound", "", Argument::None, 0, none, TUNER(play4thStringSound)},
    {Screen::Tuner, "openChords", "", Argument::None, 0, none, [](TunerApp& app, Args) { app.setChordsOpen(true); }},
    // The tuning fork.
    {Screen::Tuner, "playA440Hz", "", Argument::None, 0, none, TUNER(playA440Hz)},
    {Screen::Tuner, "playE329_6", "", Argument::None, 0, none, TUNER(playE329_6)},
    {Screen::Tuner, "playC261_6Hz", "", Argument::None, 0, none, TUNER(playC261_6Hz)},
    {Screen::Tuner, "playG392Hz", "", Argument::None, 0, none, TUNER(playG392Hz)},
    {Screen::Tuner, "stopFreqPlay", "", Argument::None, 0, none, TUNER(stopFreqPlay)},
    // The panels over the tuner.
    {Screen::Tuner, "openSettings", "", Argument::None, 0, PANEL_REFUSAL(Settings), OPEN(Settings)},
    {Screen::Tuner, "openAbout", "", Argument::None, 0, PANEL_REFUSAL(About), OPEN(About)},
    {Screen::Tuner, "openTuningFork", "", Argument::None, 0, PANEL_REFUSAL(TuningFork), OPEN(TuningFork)},
    {Screen::Tuner, "closePanel", "", Argument::None, 0, panelOpen, [](TunerApp& app, Args) { app.closePanel(); }},
    // The settings and about panels.
    {Screen::Tuner, "didSelectRow", "select-language", Argument::Whole, 1, languageRow,
     [](TunerApp& app, Args a) { app.selectLanguage(static_cast<long>(a[0])); }},
    {Screen::Tuner, "micSensitivity", "slider", Argument::Number, 1, sliderRange,
     [](TunerApp& app, Args a) { tuner(app).micSensitivity(static_cast<float>(a[0])); }},
    {Screen::Tuner, "setFrequencyValue", "stepper", Argument::Number, 1, stepperRange,
     [](TunerApp& app, Args a) { tuner(app).setFrequencyValue(a[0]); }},
    {Screen::Tuner, "soundNotificationAction", "switch beep", Argument::OnOff, 1, none,
     [](TunerApp& app, Args a) { tuner(app).soundNotificationAction(a[0] != 0.0); }},
    {Screen::Tuner, "toggleStringSounds", "switch strings", Argument::OnOff, 1, none,
     [](TunerApp& app, Args a) { tuner(app).toggleStringSounds(a[0] != 0.0); }},
    {Screen::Tuner, "toggleFreqChart", "switch chart", Argument::OnOff, 1, none,
     [](TunerApp& app, Args a) { tuner(app).toggleFreqChart(a[0] != 0.0); }},
    {Screen::Tuner, "reviewQuenby", "", Argument::None, 0, none, TUNER(reviewQuenby)},
    {Screen::Tuner, "redirectToMorvaneLabs", "", Argument::None, 0, none, TUNER(redirectToMorvaneLabs)},
    // The chord library.
    {Screen::Chords, "didSelectRow", "", Argument::Whole, 2, chordPickerRow,
     [](TunerApp& app, Args a) { app.chords()->didSelectRow(static_cast<int64_t>(a[0]), static_cast<long>(a[1])); }},
    {Screen::Chords, "toggleSharpOfFlat", "", Argument::None, 0, chordsOpen,
     [](TunerApp& app, Args) { app.chords()->toggleSharpOfFlat(); }},
    {Screen::Chords, "closeChords", "", Argument::None, 0, chordsOpen, [](TunerApp& app, Args) { app.setChordsOpen(false); }},
};

#undef TUNER
#undef PANEL_REFUSAL
#undef OPEN

std::string_view firstWord(std::string_view word) { return word.substr(0, word.find(' ')); }

std::string argumentUsage(const Action& a) {
    switch (a.argument) {
    case Argument::None: return "";
    case Argument::Whole: return " ROW";
    case Argument::Number: return " VALUE";
    case Argument::OnOff: return " on|off";
    }
    return "";
}

// "switch beep|strings|chart on|off" for a group, "slider VALUE" for one word.
std::string groupUsage(std::string_view first) {
    std::string members;
    const Action* last = nullptr;
    for (const Action& a : kTable) {
        if (a.word.empty() || firstWord(a.word) != first)
            continue;
        if (a.word.size() > first.size())
            members += (members.empty() ? " " : "|") + std::string(a.word.substr(first.size() + 1));
        last = &a;
    }
    return std::string(first) + members + argumentUsage(*last);
}

std::string listed(const std::vector<std::string_view>& names) {
    std::string out;
    for (size_t i = 0; i < names.size(); ++i)
        out += std::string(i == 0 ? "" : i + 1 == names.size() ? " and " : ", ") + std::string(names[i]);
    return out;
}

} // namespace

const Action* find(Screen screen, std::string_view name) {
    for (const Action& a : kTable)
        if (a.screen == screen && a.name == name)
            return &a;
    return nullptr;
}

bool parseNumber(const std::string& word, double& out) {
    if (word.empty())
        return false;
    char* end = nullptr;
    out = std::strtod(word.c_str(), &end);
    return *end == '\0' && std::isfinite(out);
}

std::string refusal(const TunerApp& app, const Action& action, std::span<const double> args) {
    if (static_cast<int>(args.size()) != action.arity)
        return std::string(action.name) + " takes " + std::to_string(action.arity) + " argument" +
               (action.arity == 1 ? "" : "s") + ", not " + std::to_string(args.size());
    for (const double v : args)
        if (!std::isfinite(v))
            return std::string(action.name) + " takes finite numbers";
    return action.refusal(app, args);
}

std::string run(TunerApp& app, Screen screen, std::string_view name, std::span<const double> args) {
    const Action* action = find(screen, name);
    std::string why = action ? refusal(app, *action, args) : "there is no such action";
    if (!why.empty()) {
        app.log().log("Action " + std::string(name) + " refused: " + why);
        return why;
    }
    action->run(app, args);
    return {};
}

std::string scriptUsage() {
    std::vector<std::string_view> firsts;
    for (const Action& a : kTable) {
        if (a.word.empty())
            continue;
        const std::string_view first = firstWord(a.word);
        if (std::find(firsts.begin(), firsts.end(), first) == firsts.end())
            firsts.push_back(first);
    }
    std::string out;
    for (const std::string_view first : firsts)
        out += (out.empty() ? "" : ", ") + groupUsage(first);
    return out;
}

Scripted parse(const std::string& text) {
    std::istringstream in(text);
    std::vector<std::string> w;
    for (std::string word; in >> word;)
        w.push_back(word);
    Scripted s;
    if (w.empty()) {
        s.error = "needs an action";
        return s;
    }
    std::vector<const Action*> group;
    for (const Action& a : kTable)
        if (!a.word.empty() && firstWord(a.word) == w[0])
            group.push_back(&a);
    if (group.empty()) {
        s.unknown = true;
        s.error = "unknown action '" + w[0] + "'";
        return s;
    }
    const bool grouped = group.front()->word.size() > w[0].size();
    const size_t words = 1 + (grouped ? 1 : 0) + static_cast<size_t>(group.front()->arity);
    if (w.size() != words) {
        s.error = "expected '" + groupUsage(w[0]) + "'";
        return s;
    }
    const Action* action = group.front();
    if (grouped) {
        action = nullptr;
        std::vector<std::string_view> members;
        for (const Action* a : group) {
            members.push_back(a->word.substr(w[0].size() + 1));
            if (members.back() == w[1])
                action = a;
        }
        if (!action) {
            s.error = "the " + w[0] + "es are " + listed(members);
            return s;
        }
    }
    for (size_t i = words - static_cast<size_t>(action->arity); i < words; ++i) {
        double v = 0.0;
        if (action->argument == Argument::OnOff) {
            if (w[i] != "on" && w[i] != "off") {
                s.error = "a " + w[0] + " is turned on or off";
                return s;
            }
            v = w[i] == "on" ? 1.0 : 0.0;
        } else if (!parseNumber(w[i], v)) {
            s.error = "'" + w[i] + "' is not a number";
            return s;
        }
        s.args.push_back(v);
    }
    s.action = action;
    return s;
}

} // namespace uke::actions
