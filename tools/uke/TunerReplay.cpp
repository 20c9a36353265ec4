#include "TunerReplay.h"

#include "audio/MicListener.h"
#include "platform/virtual/TsStringTable.h"
#include "platform/virtual/VirtualPlatform.h"

namespace uke::tool {

int replayThroughTuner(const std::vector<std::vector<int16_t>>& blocks, const TunerOptions& options,
                       std::ostream& out, std::ostream& err) {
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
    for (size_t b = 0; b < blocks.size(); ++b) {
        const double at = static_cast<double>(b + 1) * 4096.0 / 14039.0;
        loop.performAfterDelay(at, [&platform, &blocks, b] { platform.capture.deliver(blocks[b]); });
    }
    // Scheduled after the screen's own timer, so at every 10 ms it runs right after the tick.
    size_t beeps = 0;
    loop.scheduleRepeating(0.01, [&] {
        size_t now = 0;
        for (const auto& p : platform.sounds.played)
            now += p.size() >= 13 && p.compare(p.size() - 13, 13, "beep-full.mp3") == 0;
        session.afterTick(loop.elapsed() - start, now > beeps);
        beeps = now;
    });
    const double end = static_cast<double>(blocks.size()) * 4096.0 / 14039.0 + 0.5;
    loop.advanceTo(start + end);
    return 0;
}

} // namespace uke::tool
