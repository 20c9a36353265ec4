// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/SettingsStore.h"

namespace uke {

// The values a first launch stores, in the order it stores them, without the
// first-launch marker (which goes last, after a synchronise, so that an
// interrupted reset runs again). The tool's returning player starts from them too.
void storeFactorySettings(SettingsStore& settings);

} // namespace uke
