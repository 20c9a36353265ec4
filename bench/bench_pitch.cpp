// What one pitch estimate costs: the tuner asks for one every 10 ms.
#include <benchmark/benchmark.h>

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

void BM_frequency(benchmark::State& state) {
    auto& listener = listenerWithPluck();
    for (auto _ : state)
        benchmark::DoNotOptimize(listener.frequency());
}
BENCHMARK(BM_frequency)->Unit(benchmark::kMicrosecond);

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
