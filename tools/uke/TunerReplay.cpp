// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#include "TunerReplay.h"

#include <cmath>

#include "audio/MicListener.h"
#include "platform/virtual/TsStringTable.h"
#include "platform/virtual/VirtualPlatform.h"

namespace uke::tool {

int replayThroughTuner(AudioFile& audio, const TunerOptions& options, std::ostream& out, std::ostream& err) {
    VirtualPlatform platform;
    platform.device.idiomValue = options.device.idiom;
    platform.device.height = options.device.height;
    platform.resourcePath = "sounds";
    const MicListener::Attachment attached(platform.capture, platform.log);
    MicListener* listener = MicListener::sharedListener();
    if (!listener) {
        err << "uke analyse: the listener could not be made\n";
        return 2;
    }
    TunerSession session(platform.services(), *listener, options, out);
    session.start();

    auto& loop = platform.runLoop;
    const double start = loop.elapsed();
    // Scheduled after the screen's own timer, so at every 10 ms it runs right after the tick.
    size_t beeps = 0, counted = 0, seen = 0;
    loop.scheduleRepeating(0.01, [&] {
        const auto& played = platform.sounds.played;
        for (; seen < played.size(); ++seen)
            counted += played[seen].ends_with("beep-full.mp3");
        session.afterTick(loop.elapsed() - start, counted > beeps);
        beeps = counted;
    });
    // Each block arrives before anything else due at its microsecond (the tick
    // among them): the clock runs up to just before it, then the block is handed
    // over, as the capture thread would have done.
    const auto startUs = std::llround(start * 1e6);
    std::vector<int16_t> block;
    size_t blocks = 0;
    while (audio.next(block)) {
        const double at = static_cast<double>(blocks + 1) * 4096.0 / 14039.0;
        loop.advanceTo(static_cast<double>(startUs + std::llround(at * 1e6) - 1) * 1e-6);
        platform.capture.deliver(block);
        ++blocks;
    }
    if (!audio.error().empty())
        return 2;
    const double end = static_cast<double>(blocks) * 4096.0 / 14039.0 + 0.5;
    loop.advanceTo(start + end);
    return 0;
}

} // namespace uke::tool
