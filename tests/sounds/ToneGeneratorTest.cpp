// The render step. Every waveform's samples, rendered in blocks as an audio device
// pulls them, are pinned byte for byte by the tool's golden `uke tone` outputs;
// here what those cannot show: a change of pitch or waveform while the tone runs,
// and values that name no waveform.
#include <gtest/gtest.h>

#include <vector>

#include "sounds/ToneGenerator.h"

namespace uke {
namespace {

struct Tone {
    ToneGenerator gen;
    std::atomic<int64_t> curTone{1};

    explicit Tone(int64_t wave, float hz = 440.0f) {
        curTone = wave;
        gen.toneFrequency = hz;
    }
    // Left channel of the next `frames` frames; checks the right channel matches.
    std::vector<int> next(uint32_t frames) {
        std::vector<int16_t> buf(frames * 2u, 12345);
        gen.render(buf.data(), frames, curTone);
        std::vector<int> left;
        for (uint32_t i = 0; i < frames; ++i) {
            EXPECT_EQ(buf[2 * i], buf[2 * i + 1]) << "frame " << i;
            left.push_back(buf[2 * i]);
        }
        return left;
    }
};

TEST(ToneGenerator, ValuesThatNameNoWaveformSoundAsThePlainSine) {
    const std::vector<int> sine = Tone(0).next(1000);
    for (int64_t wave : {4, -1, 99})
        EXPECT_EQ(Tone(wave).next(1000), sine) << "wave " << wave;
}

// A second string retunes the running tone: the new pitch moves the phase only
// from where the old one left it.
TEST(ToneGenerator, ANewPitchCarriesOnFromThePhaseReached) {
    Tone t(0, 5512.5f); // an eighth of a cycle per frame
    t.next(3);          // phase now 3pi/4
    t.gen.toneFrequency = 11025.0f;
    // 3pi/4, then a quarter cycle per frame: 5pi/4, 7pi/4, 9pi/4 wrapped to pi/4.
    EXPECT_EQ(t.next(4), (std::vector<int>{21019, -21019, -21019, 21019}));
}

// The waveform state runs on while the sine alone is heard, so switching back
// picks up the triangle where it would have been.
TEST(ToneGenerator, WaveformStateRunsOnWhileAnotherWaveformIsHeard) {
    Tone steady(1), swapped(1);
    steady.next(500);
    swapped.next(200);
    swapped.curTone = 0;
    swapped.next(100);
    swapped.curTone = 1;
    swapped.next(200);
    EXPECT_EQ(steady.next(50), swapped.next(50));
}

} // namespace
} // namespace uke
