// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The app's composition root on virtual ports, fresh per test, with a listener
// whose level and estimate the test sets.
#include <gtest/gtest.h>

#include <optional>

#include "app/TunerApp.h"
#include "audio/PitchSource.h"
#include "platform/virtual/VirtualPlatform.h"
#include "rating/RatingPrompt.h"
#include "sounds/ToneGenerator.h"
#include "tuner/ViewController.h"

namespace uke::test {

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
    TunerFixture()
        : app(std::in_place, platform.services(), listener), controller(&app->tuner()), state(app->state()),
          screen(app->tunerScreen()), tone(app->tone()), rating(&app->rating()) {}

    // A fresh app over the same store, as a relaunch would make. It is built in the
    // same place as the old one, so the references above name the new one's parts.
    void rebuild() {
        app.reset();
        app.emplace(platform.services(), listener);
        controller = &app->tuner();
        rating = &app->rating();
    }
    // The screen loads and appears, as at launch.
    void launch() {
        controller->viewDidLoad();
        controller->viewWillAppear();
        platform.runLoop.runPending();
    }
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
    ScriptedPitchSource listener;
    std::optional<TunerApp> app;
    ViewController* controller;
    SharedState& state;
    TunerScreenModel& screen;
    ToneGenerator& tone;
    RatingPrompt* rating;
};

} // namespace uke::test
