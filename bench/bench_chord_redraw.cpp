// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
// A picker selection must redraw the board within the same user-interface turn:
// the shape lookup, and the whole redraw with its two counter writes.
#include <benchmark/benchmark.h>

#include "app/TunerApp.h"
#include "audio/PitchSource.h"
#include "chords/ChordCatalogue.h"
#include "chords/ChordShapeTable.h"
#include "chords/ChordsViewController.h"
#include "platform/virtual/VirtualPlatform.h"

namespace {

void BM_ShapeLookup(benchmark::State& state) {
    size_t i = 0;
    for (auto _ : state) {
        const auto& root = uke::ChordCatalogue::rootKeys[i % 12];
        const auto& variant = uke::ChordCatalogue::fullVariantKeys[(i / 12) % 15];
        benchmark::DoNotOptimize(uke::ChordShapeTable::find(1 + static_cast<int64_t>(i % 2), root, variant));
        ++i;
    }
}
BENCHMARK(BM_ShapeLookup);

void BM_SelectRootAndRedraw(benchmark::State& state) {
    uke::SilentPitchSource listener;
    uke::VirtualPlatform platform;
    uke::TunerApp::Config config;
    config.chordsWillLoad = [](uke::ChordsViewController& c) {
        c.random = [](uint32_t) { return 0u; };
        c.showRatingPromptIfDue = [] {};
    };
    uke::TunerApp app(platform.services(), listener, config);
    app.setChordsOpen(true);
    uke::ChordsViewController& controller = *app.chords();
    long row = 0;
    for (auto _ : state) {
        controller.didSelectRow(1, row);
        row = (row + 1) % 12;
        // The log would otherwise grow by two lines a redraw.
        if (platform.log.lines.size() > 4096)
            platform.log.lines.clear();
    }
}
BENCHMARK(BM_SelectRootAndRedraw);

} // namespace
