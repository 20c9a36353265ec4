// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
// What one pitch estimate costs: the tuner asks for one every 10 ms.
#include <benchmark/benchmark.h>
#include <kiss_fftr.h>

#include <algorithm>
#include <vector>

#include "../tests/support/SyntheticPluck.h"
#include "audio/MicListener.h"
#include "platform/virtual/Fakes.h"

namespace {

uke::MicListener& listenerWithPluck() {
    static uke::FakeAudioCapture capture;
    static uke::RecordingLog log;
    static uke::MicListener* listener = [] {
        uke::MicListener::configure(capture, log);
        uke::MicListener* l = uke::MicListener::sharedListener();
        const auto pluck = uke::test::syntheticPluck(440.0, 14039.0, 4096);
        l->setAudioBuffer(pluck.data(), 8192);
        return l;
    }();
    return *listener;
}

// A new block each time: what the tuner pays once per captured block.
void BM_EstimateOfANewBlock(benchmark::State& state) {
    auto& listener = listenerWithPluck();
    const auto pluck = uke::test::syntheticPluck(440.0, 14039.0, 4096);
    for (auto _ : state) {
        listener.setAudioBuffer(pluck.data(), 8192);
        benchmark::DoNotOptimize(listener.frequency());
    }
}
BENCHMARK(BM_EstimateOfANewBlock)->Unit(benchmark::kMicrosecond);

// The same block again: what the other ticks until the next block pay.
void BM_EstimateOfTheSameBlock(benchmark::State& state) {
    auto& listener = listenerWithPluck();
    for (auto _ : state)
        benchmark::DoNotOptimize(listener.frequency());
}
BENCHMARK(BM_EstimateOfTheSameBlock);

// The floor: KISS FFT's real transform of 32768 points with a configuration made once.
void BM_BareTransform(benchmark::State& state) {
    kiss_fftr_cfg cfg = kiss_fftr_alloc(uke::MicListener::kFftSize, 0, nullptr, nullptr);
    std::vector<kiss_fft_scalar> in(uke::MicListener::kFftSize);
    std::vector<kiss_fft_cpx> out(uke::MicListener::kFftSize / 2 + 1);
    const auto pluck = uke::test::syntheticPluck(440.0, 14039.0, 4096);
    std::copy(pluck.begin(), pluck.end(), in.begin());
    for (auto _ : state) {
        kiss_fftr(cfg, in.data(), out.data());
        benchmark::DoNotOptimize(out.data());
    }
    kiss_fftr_free(cfg);
}
BENCHMARK(BM_BareTransform)->Unit(benchmark::kMicrosecond);

void BM_performFFT(benchmark::State& state) {
    auto& listener = listenerWithPluck();
    const auto pluck = uke::test::syntheticPluck(440.0, 14039.0, 4096);
    for (auto _ : state) {
        listener.performFFT(pluck.data(), 4096);
        benchmark::DoNotOptimize(listener.freq_db());
    }
}
BENCHMARK(BM_performFFT)->Unit(benchmark::kMicrosecond);

void BM_addHarmonics(benchmark::State& state) {
    auto& listener = listenerWithPluck();
    listener.frequency();
    for (auto _ : state) {
        listener.addHarmonics();
        benchmark::DoNotOptimize(listener.freq_db_harmonic());
    }
}
BENCHMARK(BM_addHarmonics)->Unit(benchmark::kMicrosecond);

void BM_findTopSpike(benchmark::State& state) {
    auto& listener = listenerWithPluck();
    listener.frequency();
    for (auto _ : state)
        benchmark::DoNotOptimize(listener.findTopSpike());
}
BENCHMARK(BM_findTopSpike)->Unit(benchmark::kMicrosecond);

} // namespace
