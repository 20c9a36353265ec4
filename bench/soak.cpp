// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
// One hour of a player's virtual time with the whole core: plucks of every string
// of the tuning in turn through the real listener, silences between them, every
// string reached (so that each unmatched tick schedules its pair of delayed
// messages), a tuning change every five minutes and the chord screen opened and
// closed every ten. Prints the memory at the end of the first minute and of the
// hour and the delayed messages waiting; a leak shows as growth between the two.
// usage: soak [MINUTES]   (default 60)
#include <cstdio>
#include <cstdlib>
#include <map>
#include <string>
#include <vector>

#include "../tests/support/SyntheticPluck.h"
#include "ProcFiles.h"
#include "app/TunerApp.h"
#include "audio/MicListener.h"
#include "base/TuningCatalogue.h"
#include "platform/virtual/VirtualPlatform.h"
#include "tuner/ViewController.h"

int main(int argc, char** argv) {
    const double minutes = argc > 1 ? std::atof(argv[1]) : 60.0;
    if (!(minutes >= 2.0)) {
        std::fprintf(stderr, "usage: soak [MINUTES]   (at least 2)\n");
        return 2;
    }
    uke::VirtualPlatform platform;
    const uke::MicListener::Attachment attached(platform.capture, platform.log);
    uke::TunerApp app(platform.services(), *uke::MicListener::sharedListener());
    app.start();

    constexpr double kRate = 14039.0;
    constexpr double kBlockSeconds = 4096.0 / kRate;
    const std::vector<int16_t> silence(4096, 0);
    std::map<double, std::vector<int16_t>> plucks;
    auto& loop = platform.runLoop;
    long blocks = 0, beforeKb = 0;
    bool forward = true;
    size_t soundsPlayed = 0;
    for (double t = 0.0; t < minutes * 60.0; t += kBlockSeconds, ++blocks) {
        const auto minute = static_cast<long>(t / 60.0);
        const auto second = static_cast<long>(t) % 60;
        if (second == 0 && t - minute * 60.0 < kBlockSeconds) {
            // The virtual player keeps every sound it was asked to play, as a test
            // double does; what it kept is counted, then let go.
            soundsPlayed += platform.sounds.played.size();
            std::vector<std::string>().swap(platform.sounds.played);
            // Through the tunings and back, as the arrows allow.
            if (minute % 5 == 4) {
                if (app.state().chosenTuning == uke::TuningCatalogue::kLast)
                    forward = false;
                else if (app.state().chosenTuning == uke::TuningCatalogue::kFirst)
                    forward = true;
                forward ? app.tuner().showNextTuning() : app.tuner().showPreviousTuning();
            }
            if (minute % 10 == 9)
                app.setChordsOpen(true);
            if (minute % 10 == 0 && app.chordsOpen())
                app.setChordsOpen(false);
        }
        // A pluck of each string in turn, 2 s each, then 1 s of silence.
        const auto slot = static_cast<long>(t / 3.0);
        const bool plucking = t - static_cast<double>(slot) * 3.0 < 2.0;
        const int64_t tuning = app.state().chosenTuning;
        const auto pitch = uke::TuningCatalogue::tuning(tuning).strings[static_cast<size_t>(slot % 4)];
        const double hertz = app.state().targets[pitch].target;
        auto& pluck = plucks[hertz];
        if (pluck.empty())
            pluck = uke::test::syntheticPluck(hertz, kRate, 4096);
        platform.capture.deliver(plucking ? pluck : silence);
        loop.advanceBy(kBlockSeconds);
        if (beforeKb == 0 && t >= 60.0)
            beforeKb = uke::bench::kilobytesIn("/proc/self/status", "VmRSS:");
    }
    const long afterKb = uke::bench::kilobytesIn("/proc/self/status", "VmRSS:");
    std::printf("%.0f minutes of virtual time, %ld blocks\n", minutes, blocks);
    std::printf("RSS after the first minute %ld kB, at the end %ld kB (%+ld kB)\n", beforeKb, afterKb,
                afterKb - beforeKb);
    std::printf("delayed messages waiting at the end: %zu\n", loop.pendingCount());
    std::printf("sounds played: %zu; log lines: %zu\n", soundsPlayed + platform.sounds.played.size(),
                platform.log.lines.size());
    return 0;
}
