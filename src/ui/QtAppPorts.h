// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <memory>

#include "AppOptions.h"
#include "AppPorts.h"

namespace uke {

// Every port of a running app on its Qt implementation. A view test takes these
// and swaps the audio ones before handing them to the host.
std::unique_ptr<AppPorts> makeQtAppPorts(const AppOptions& options);

} // namespace uke
