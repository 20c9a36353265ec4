#pragma once
#include <cstdint>
#include <ostream>
#include <vector>

#include "TunerSession.h"

namespace uke::tool {

// Replays a recording through the tuner on a virtual clock: block b becomes the
// listener's buffer at (b + 1) x 4096 / 14039 s, the tick fires every 10 ms until
// half a second after the last block, and a line is printed after every tick that
// changed the screen.
int replayThroughTuner(const std::vector<std::vector<int16_t>>& blocks, const TunerOptions& options,
                       std::ostream& out, std::ostream& err);

} // namespace uke::tool
