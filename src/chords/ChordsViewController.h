#pragma once
#include <cstdint>

#include "app/SharedState.h"
#include "chords/ChordScreenModel.h"
#include "platform/Services.h"

namespace uke {

class RatingPrompt;

// The chord library screen.
class ChordsViewController {
public:
    ChordsViewController(Services services, SharedState& state, ChordScreenModel& screen, RatingPrompt& rating);

    void viewDidLoad();

    // Set by the opener before the screen loads.
    int64_t ukuleleType = 0;
    int64_t selectedLanguage = 0;

private:
    Services s_;
    SharedState& state_;
    ChordScreenModel& screen_;
    RatingPrompt& rating_;
};

} // namespace uke
