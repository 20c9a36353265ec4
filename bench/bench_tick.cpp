// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
// What the 10 ms tuner tick costs on the main thread: most ticks see the block the
// previous one saw, and only a few change what the screen shows.
#include <benchmark/benchmark.h>

#include "../tests/support/SyntheticPluck.h"
#include "app/TunerApp.h"
#include "audio/MicListener.h"
#include "platform/virtual/VirtualPlatform.h"
#include "tuner/ViewController.h"

namespace {

// A listener that has heard one plucked A4 block, and the tuner screen over it.
struct TunerOnAPluck {
    TunerOnAPluck() {
        app.start(); // the screen's load starts the listener
        platform.capture.deliver(uke::test::syntheticPluck(440.0, 14039.0, 4096));
    }
    uke::VirtualPlatform platform;
    uke::MicListener::Attachment attached{platform.capture, platform.log};
    uke::TunerApp app{platform.services(), *uke::MicListener::sharedListener()};
};

void BM_TickWithAnUnchangedBlock(benchmark::State& state) {
    TunerOnAPluck tuner;
    uke::ViewController& controller = tuner.app.tuner();
    controller.tickFree();
    if (tuner.app.tunerScreen().noteDisplay.text != "A4")
        state.SkipWithError("the pluck did not reach the tuner");
    for (auto _ : state)
        controller.tickFree();
}
BENCHMARK(BM_TickWithAnUnchangedBlock);

// A string in tune, then silence, and so on: every tick rewrites the read-outs.
void BM_TickThatChangesTheScreen(benchmark::State& state) {
    struct Alternating : uke::PitchSource {
        void listen() override {}
        float averagePower() override { return loud ? 0.05f : 0.0f; }
        float frequency() override { return 440.0f; }
        bool loud = false;
    } source;
    uke::VirtualPlatform platform;
    uke::TunerApp app(platform.services(), source);
    app.start();
    for (auto _ : state) {
        source.loud = !source.loud;
        app.tuner().tickFree();
    }
}
BENCHMARK(BM_TickThatChangesTheScreen);

} // namespace
