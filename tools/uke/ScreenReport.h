// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <ostream>

#include "ScreenRun.h"

namespace uke::tool {

// What `uke screen` prints after a run: every outlet of the tuner screen, the log
// lines and the stored keys, as aligned text or as one JSON object.
void printScreenText(const ScreenRun& run, std::ostream& out);
void printScreenJson(const ScreenRun& run, std::ostream& out);

} // namespace uke::tool
