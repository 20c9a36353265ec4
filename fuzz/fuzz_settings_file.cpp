// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
// Any bytes as the settings file: loaded, every key read back in every type,
// and written again.
#include <cstdint>
#include <string>

#include "ScratchFile.h"
#include "base/SettingsKeys.h"
#include "platform/virtual/MemorySettingsStore.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string path = uke::fuzz::writeScratch(data, size, ".ini");
    uke::IniFileSettingsStore store(path);
    std::string error;
    if (!store.load(error))
        return 0;
    // Whatever keys the file holds, each read in every type the app reads.
    for (const std::string& key : store.keys()) {
        (void)store.boolForKey(key);
        (void)store.integerForKey(key);
        (void)store.floatForKey(key);
        (void)store.doubleForKey(key);
        (void)store.stringForKey(key);
    }
    store.setInteger(uke::keys::savedA4Calibration, 442);
    store.synchronize();
    return 0;
}
