#pragma once
// A tuner screen on virtual ports: everything a controller test needs, fresh per test.
#include <gtest/gtest.h>

#include <memory>

#include "base/SharedState.h"
#include "audio/PitchSource.h"
#include "platform/virtual/VirtualPlatform.h"
#include "rating/RatingPrompt.h"
#include "sounds/ToneGenerator.h"
#include "tuner/TunerScreenModel.h"
#include "tuner/ViewController.h"

namespace uke::test {

// A listener whose level and estimate the test sets directly.
class ScriptedPitchSource : public PitchSource {
public:
    void listen() override { ++listenCount; }
    float averagePower() override { return power; }
    float frequency() override { return hz; }
    // Sets what the next ticks read.
    void set(float level, float frequency) {
        power = level;
        hz = frequency;
    }
    float power = 0.0f;
    float hz = 0.0f;
    int listenCount = 0;
};

class TunerFixture : public ::testing::Test {
protected:
    TunerFixture() { rebuild(); }

    // Makes a fresh controller over the same store, as a relaunch of the app would.
    void rebuild() {
        controller.reset();
        rating.reset();
        state = SharedState{};
        screen = TunerScreenModel{};
        rating = std::make_unique<RatingPrompt>(platform.services());
        controller = std::make_unique<ViewController>(platform.services(), state, screen, listener, tone, *rating);
    }
    // The screen loads and appears, as at launch.
    void launch() {
        controller->viewDidLoad();
        controller->viewWillAppear();
        platform.runLoop.runPending();
    }
    // Moves virtual time on; the 10 ms tick fires along the way.
    void advance(double seconds) { platform.runLoop.advanceBy(seconds); }
    // One tick with the given level and frequency; the timer's own ticks then hear silence.
    void tick(float level, float frequency) {
        listener.set(level, frequency);
        controller->tickFree();
        listener.set(0.0f, 0.0f);
    }
    void setDevice(Idiom idiom, double height) {
        platform.device.idiomValue = idiom;
        platform.device.height = height;
    }

    VirtualPlatform platform;
    SharedState state;
    TunerScreenModel screen;
    ScriptedPitchSource listener;
    ToneGenerator tone;
    std::unique_ptr<RatingPrompt> rating;
    std::unique_ptr<ViewController> controller;
};

} // namespace uke::test
