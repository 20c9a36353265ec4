// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#include "ScreenRun.h"

#include "platform/virtual/TsStringTable.h"

namespace uke::tool {

ScreenRun::ScreenRun(const DeviceClass& device, const std::string& language, SettingsStore* store) {
    platform_.device.idiomValue = device.idiom;
    platform_.device.height = device.height;
    if (store)
        platform_.store = store;
    platform_.strings.entries = stringsForLanguage(language).tables();
    app_ = std::make_unique<TunerApp>(platform_.services(), listener_);
    app_->start();
    platform_.runLoop.runPending();
}

bool ScreenRun::play(const std::vector<Step>& steps, std::string& error) {
    for (const Step& step : steps) {
        if (step.action) {
            if (const std::string why = actions::refusal(*app_, *step.action, step.args); !why.empty()) {
                error = "--do '" + step.text + "': " + why;
                return false;
            }
            step.action->run(*app_, step.args);
        } else {
            platform_.runLoop.advanceBy(step.wait);
        }
        platform_.runLoop.runPending();
    }
    return true;
}

} // namespace uke::tool
