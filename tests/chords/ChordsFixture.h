#pragma once
// A chord screen on virtual ports, with a scripted random source and a counted
// rating hook.
#include <gtest/gtest.h>

#include <deque>
#include <memory>

#include "base/SharedState.h"
#include "chords/ChordCatalogue.h"
#include "chords/ChordsViewController.h"
#include "platform/virtual/VirtualPlatform.h"
#include "rating/RatingPrompt.h"

namespace uke::test {

class ChordsFixture : public ::testing::Test {
protected:
    ChordsFixture() {
        platform.strings.set("ChordsTitleGlobal", "Chord library");
        platform.strings.set("ChordsTitleSCT", "Standard");
        platform.strings.set("ChordsTitleB", "Baritone");
        platform.strings.set("ChordsTitleSl", "Open C");
        platform.strings.set("ChordsTitleSlB", "Open G");
        // Localised root names that cannot be mistaken for any fixed naming system.
        for (std::string_view key : ChordCatalogue::rootKeys)
            platform.strings.set(std::string(key), "loc:" + std::string(key));
        rating = std::make_unique<RatingPrompt>(platform.services());
    }

    // A fresh controller over the same store and process-wide state, as opening
    // the screen again would make; the first chord is drawn from `draws`.
    ChordsViewController& open(int64_t chart, int64_t language = 1, std::deque<uint32_t> draws = {0, 0}) {
        controller.reset();
        screen = ChordScreenModel{};
        controller = std::make_unique<ChordsViewController>(platform.services(), state, screen, *rating);
        controller->ukuleleType = chart;
        controller->selectedLanguage = language;
        randomDraws = std::move(draws);
        controller->random = [this](uint32_t bound) {
            bounds.push_back(bound);
            if (randomDraws.empty())
                return 0u;
            const uint32_t v = randomDraws.front();
            randomDraws.pop_front();
            return v;
        };
        controller->showRatingPromptIfDue = [this] { ++ratingAsks; };
        controller->viewDidLoad();
        return *controller;
    }

    long stored(const char* key) const { return platform.store->integerForKey(key); }

    VirtualPlatform platform;
    SharedState state;
    ChordScreenModel screen;
    std::unique_ptr<RatingPrompt> rating;
    std::unique_ptr<ChordsViewController> controller;
    std::deque<uint32_t> randomDraws;
    std::vector<uint32_t> bounds;
    int ratingAsks = 0;
};

} // namespace uke::test
