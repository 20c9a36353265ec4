// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "base/SharedState.h"
#include "chords/ChordScreenModel.h"
#include "platform/Services.h"

namespace uke {

class RatingPrompt;
struct ChordShape;

// The chord library screen: a root picker, a chord-type picker, a sharp/flat
// switch and the fretboard. Operations keep the names the screen logic has always
// used; a "chord" here is a root and a "variant" a chord type.
class ChordsViewController {
public:
    // A uniform whole number in 0 .. upperBound - 1.
    using RandomSource = std::function<uint32_t(uint32_t upperBound)>;

    ChordsViewController(Services services, SharedState& state, ChordScreenModel& screen, RatingPrompt& rating);
    ChordsViewController(const ChordsViewController&) = delete;
    ChordsViewController& operator=(const ChordsViewController&) = delete;

    // Set by the opener before the screen loads.
    int64_t ukuleleType = 0;
    int64_t selectedLanguage = 0;

    // Draws the first chord; the platform's random numbers unless a test sets it.
    RandomSource random;
    // What the rating check asks for at its counts; when empty, the rating
    // prompt's tryToShowPrompt.
    std::function<void()> showRatingPromptIfDue;

    void viewDidLoad();
    void loadChordsTitle();
    void loadChordList();
    void preselectChord();

    // Picker data source and delegate; a picker is known by its tag (1 roots,
    // 2 full type list, 3 and 4 short type list).
    long numberOfComponentsInPickerView() const { return 1; }
    long numberOfRowsInComponent(int64_t tag) const;
    std::string titleForRow(int64_t tag, long row) const;
    void didSelectRow(int64_t tag, long row);

    void displayChord();
    void applyVariant();
    void toggleSharpOfFlat();
    void promptToReview();

    // The fretboard.
    void setUkuleleFretboard();
    void clearFretboard();

    const std::vector<std::string>& chordList() const { return chordList_; }
    const std::vector<std::string>& variantList() const { return variantList_; }
    const std::string& currentChord() const { return currentChord_; }
    const std::string& currentVariant() const { return currentVariant_; }
    long chordsSearched() const { return chordsSearched_; }
    long variantsSearched() const { return variantsSearched_; }

private:
    // Draws the shape of (chart, current root, variant) in the current spelling;
    // nothing when the spelling state is inconsistent or the table lacks it.
    void drawCurrent(std::string_view variant);
    void wirePickers(int64_t variantTag);
    long bumpCounter(const char* key);

    Services s_;
    SharedState& state_;
    ChordScreenModel& screen_;
    RatingPrompt& rating_;

    std::vector<std::string> chordList_;
    std::vector<std::string> variantList_;
    std::string currentChord_;
    std::string currentVariant_;
    long chordsSearched_ = 0;
    long variantsSearched_ = 0;
};

} // namespace uke
