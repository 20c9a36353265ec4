// A picker selection must redraw the board within the same user-interface turn:
// the shape lookup, and the whole redraw with its two counter writes.
#include <benchmark/benchmark.h>

#include "chords/ChordCatalogue.h"
#include "chords/ChordShapeTable.h"
#include "chords/ChordsViewController.h"
#include "platform/virtual/VirtualPlatform.h"
#include "rating/RatingPrompt.h"

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
    uke::VirtualPlatform platform;
    uke::SharedState shared;
    uke::ChordScreenModel screen;
    uke::RatingPrompt rating(platform.services());
    uke::ChordsViewController controller(platform.services(), shared, screen, rating);
    controller.ukuleleType = 1;
    controller.selectedLanguage = 1;
    controller.random = [](uint32_t) { return 0u; };
    controller.showRatingPromptIfDue = [] {};
    controller.viewDidLoad();
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
