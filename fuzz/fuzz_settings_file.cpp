// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
// Any bytes as the settings file: loaded, every key read back in every type, then
// the app started on it (the first-launch reset or the restore of every control),
// the counters and the rating dates used, and the file written again.
#include <cstdint>
#include <string>
#include <vector>

#include "ScratchFile.h"
#include "ScreenRun.h"
#include "base/SettingsKeys.h"
#include "platform/virtual/MemorySettingsStore.h"

namespace {

void startOn(uke::SettingsStore& store) {
    // The next tuning asks the rating prompt (its dates and counts), the chord
    // library counts a chord, and coming back restores every control again.
    std::vector<uke::tool::Step> steps;
    for (const char* text : {"next", "openChords", "closeChords", "appear"}) {
        uke::tool::Step step;
        std::string error;
        if (uke::tool::parseStep(text, step, error))
            steps.push_back(step);
    }
    uke::tool::ScreenRun run(uke::DeviceClass{}, "en", &store);
    std::string error;
    (void)run.play(steps, error);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string path = uke::fuzz::writeScratch(data, size, ".ini");
    uke::IniFileSettingsStore store(path);
    std::string error;
    if (!store.load(error))
        return 0;
    for (const std::string& key : store.keys()) {
        (void)store.boolForKey(key);
        (void)store.integerForKey(key);
        (void)store.floatForKey(key);
        (void)store.doubleForKey(key);
        (void)store.stringForKey(key);
    }
    // A file without the first-launch marker is wiped at start-up; a second copy
    // with the marker makes the app read every value the file holds.
    uke::IniFileSettingsStore returning(path);
    (void)returning.load(error);
    returning.setBool(uke::keys::NewLaunchOrvel, true);
    startOn(store);
    startOn(returning);
    return 0;
}
