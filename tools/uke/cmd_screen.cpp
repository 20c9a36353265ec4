// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
// `uke screen`: the app's start-up and the tuner screen on virtual ports, a
// script of user actions, then every outlet, log line and stored key.
#include <filesystem>
#include <memory>

#include "Args.h"
#include "Commands.h"
#include "Language.h"
#include "ScreenReport.h"
#include "ScreenRun.h"
#include "ScreenScript.h"
#include "platform/virtual/MemorySettingsStore.h"

namespace uke::tool {

int cmdScreen(const Words& words, std::ostream& out, std::ostream& err) {
    Args args({"device", "lang", "settings", "do", "format"}, {}, {"do"});
    std::string fmt = "text";
    DeviceClass device;
    std::string language = environmentLanguage();
    if (!args.parse(words) || !args.choice("format", {"text", "json"}, fmt) ||
        !args.positionalAtMost(0, " (actions go after --do, e.g. --do \"slider 4.6\")") ||
        !args.device("device", device) || !args.language("lang", language)) {
        err << "uke screen: " << args.error() << "\n";
        return 2;
    }
    std::vector<Step> steps;
    for (const auto& text : args.values("do")) {
        Step step;
        if (std::string error; !parseStep(text, step, error)) {
            err << "uke screen: " << error << "\n";
            return 2;
        }
        steps.push_back(std::move(step));
    }
    const auto refused = [&](ScreenRun& run) {
        std::string error;
        if (run.play(steps, error))
            return false;
        err << "uke screen: " << error << "\n";
        return true;
    };
    // The script is played once on a scratch app first, so that a step the app
    // refuses (an arrow past the last tuning) stops it before anything is stored.
    if (ScreenRun trial(device, language, nullptr); refused(trial))
        return 2;

    std::unique_ptr<IniFileSettingsStore> ini;
    if (const auto path = args.value("settings")) {
        // Refused before anything runs, so that nothing is half done.
        if (std::error_code ec; std::filesystem::is_directory(*path, ec)) {
            err << "uke screen: --settings '" << *path << "' is a directory, not a settings file\n";
            return 2;
        }
        ini = std::make_unique<IniFileSettingsStore>(*path);
        if (std::string error; !ini->load(error)) {
            err << "uke screen: cannot read settings file " << *path << ": " << error << "\n";
            return 2;
        }
    }

    ScreenRun run(device, language, ini.get());
    if (refused(run))
        return 2;
    if (fmt == "json")
        printScreenJson(run, out);
    else
        printScreenText(run, out);
    if (ini && ini->writeError()) {
        err << "uke screen: could not write settings file " << *args.value("settings") << "\n";
        return 2;
    }
    return 0;
}

} // namespace uke::tool
