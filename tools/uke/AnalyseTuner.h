// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <ostream>

#include "Args.h"
#include "AudioFile.h"

namespace uke::tool {

// `uke analyse FILE --tuning N [...]`: the recording's blocks replayed through the
// tuner as they are read. `args` holds the command's parsed options. Returns the
// command's exit status; a recording that turns out bad part-way leaves its
// reason in `audio`.
int analyseTuner(AudioFile& audio, const Args& args, std::ostream& out, std::ostream& err);

} // namespace uke::tool
