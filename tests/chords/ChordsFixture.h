// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The chord screen opened from the app's composition root on virtual ports, with a
// scripted random source and a counted rating hook.
#include <gtest/gtest.h>

#include <deque>
#include <optional>

#include "app/TunerApp.h"
#include "audio/PitchSource.h"
#include "chords/ChordCatalogue.h"
#include "chords/ChordsViewController.h"
#include "platform/virtual/VirtualPlatform.h"

namespace uke::test {

class ChordsFixture : public ::testing::Test {
protected:
    ChordsFixture() {
        // Localised root names that cannot be mistaken for any fixed naming system.
        for (std::string_view key : ChordCatalogue::rootKeys)
            platform.strings.set(std::string(key), "loc:" + std::string(key));
        TunerApp::Config config;
        config.chordsWillLoad = [this](ChordsViewController& c) {
            // Any chart and naming system, also those the tuner never hands over.
            c.ukuleleType = chart;
            c.selectedLanguage = language;
            c.random = [this](uint32_t bound) {
                bounds.push_back(bound);
                if (randomDraws.empty())
                    return 0u;
                const uint32_t v = randomDraws.front();
                randomDraws.pop_front();
                return v;
            };
            c.showRatingPromptIfDue = [this] { ++ratingAsks; };
        };
        app.emplace(platform.services(), listener, config);
        // The tuner under the chord library has appeared once, as in the app; what
        // its launch logged and stored is not these tests' business.
        app->start();
        platform.runLoop.runPending();
        platform.log.lines.clear();
        platform.memoryStore.synchronizeCount = 0;
    }

    // The chord screen opened again over the same store and process-wide state, on
    // `chart`, naming roots in `naming` (the tuner always hands over 1); the first
    // chord is drawn from `draws`.
    ChordsViewController& open(int64_t chart, int64_t naming = 1, std::deque<uint32_t> draws = {0, 0}) {
        app->setChordsOpen(false);
        this->chart = chart;
        language = naming;
        randomDraws = std::move(draws);
        app->setChordsOpen(true);
        controller = app->chords();
        return *controller;
    }

    long stored(const char* key) const { return platform.store->integerForKey(key); }

    VirtualPlatform platform;
    SilentPitchSource listener;
    std::optional<TunerApp> app;
    SharedState& state = app->state();
    ChordScreenModel& screen = app->chordScreen();
    ChordsViewController* controller = nullptr;
    int64_t chart = 1;
    int64_t language = 1;
    std::deque<uint32_t> randomDraws;
    std::vector<uint32_t> bounds;
    int ratingAsks = 0;
};

} // namespace uke::test
