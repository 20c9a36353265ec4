#pragma once
#include <cstdint>
#include <ostream>
#include <vector>

#include "Args.h"

namespace uke::tool {

// `uke analyse FILE --tuning N [...]`: the recording's blocks, as read by
// readAudioFile, replayed through the tuner. `args` holds the command's parsed
// options. Returns the command's exit status.
int analyseTuner(const std::vector<std::vector<int16_t>>& blocks, const Args& args, std::ostream& out,
                 std::ostream& err);

} // namespace uke::tool
