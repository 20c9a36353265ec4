#pragma once
#include <memory>

#include "AppOptions.h"
#include "AppPorts.h"

namespace uke {

// Every port of a running app on its Qt implementation. A view test takes these
// and swaps the audio ones before handing them to the host.
std::unique_ptr<AppPorts> makeQtAppPorts(const AppOptions& options);

} // namespace uke
