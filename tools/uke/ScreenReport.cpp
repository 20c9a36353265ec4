// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#include "ScreenReport.h"

#include <algorithm>

#include "base/OutletJson.h"

namespace uke::tool {

namespace {

std::string textOf(const Label& o) { return "label   text=" + jsonQuoted(o.text); }
std::string textOf(const ImageView& o) { return "image   image=" + jsonQuoted(o.image); }
std::string textOf(const Button& o) {
    return "button  title=" + jsonQuoted(o.title) + (o.image.empty() ? "" : " image=" + jsonQuoted(o.image));
}
std::string textOf(const Switch& o) { return std::string("switch  ") + (o.on ? "on" : "off"); }
std::string textOf(const Slider& o) { return "slider  value=" + jsonNumber(o.value); }
std::string textOf(const Stepper& o) { return "stepper value=" + jsonNumber(o.value); }
std::string textOf(const Picker& o) {
    std::string rows;
    for (const auto& r : o.rows)
        rows += (rows.empty() ? "" : ", ") + jsonQuoted(r);
    return "picker  row=" + std::to_string(o.selectedRow) + " rows=[" + rows + "]";
}

} // namespace

void printScreenText(const ScreenRun& run, std::ostream& out) {
    out << "outlets:\n";
    run.app().tunerScreen().forEachOutlet([&](const char* name, const auto& o) {
        std::string line = "  " + std::string(name);
        line.resize(std::max<size_t>(line.size() + 1, 28), ' ');
        out << line << textOf(o) << (o.hidden ? " hidden" : "") << "\n";
    });
    out << "log:\n";
    for (const auto& line : run.platform().log.lines)
        out << "  " << line << "\n";
    out << "settings:\n";
    const SettingsStore& store = *run.platform().store;
    for (const auto& key : store.keys())
        out << "  " << key << " = " << settingToText(*store.value(key)) << "\n";
}

void printScreenJson(const ScreenRun& run, std::ostream& out) {
    out << "{\"outlets\": " << outletsJson(run.app().tunerScreen()) << ", \"log\": [";
    const auto& log = run.platform().log.lines;
    for (size_t i = 0; i < log.size(); ++i)
        out << (i ? ", " : "") << jsonQuoted(log[i]);
    out << "], \"settings\": {";
    const SettingsStore& store = *run.platform().store;
    bool first = true;
    for (const auto& key : store.keys()) {
        out << (first ? "" : ", ") << jsonQuoted(key) << ": " << settingJson(*store.value(key));
        first = false;
    }
    out << "}}\n";
}

} // namespace uke::tool
