// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <ostream>

#include "AudioFile.h"
#include "TunerSession.h"

namespace uke::tool {

// Replays a recording through the tuner on a virtual clock, block by block as it
// is decoded: block b becomes the listener's buffer at (b + 1) x 4096 / 14039 s,
// the tick fires every 10 ms until half a second after the last block, and a line
// is printed after every tick that changed the screen. Stops where the recording
// turns out bad (its reason stays in `audio`).
int replayThroughTuner(AudioFile& audio, const TunerOptions& options, std::ostream& out, std::ostream& err);

} // namespace uke::tool
