// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#include "chords/ChordsViewController.h"

#include <random>

#include "base/Format.h"
#include "base/SettingsKeys.h"
#include "chords/ChordCatalogue.h"
#include "chords/ChordShapeTable.h"
#include "chords/Fretboard.h"
#include "rating/RatingPrompt.h"

namespace uke {

namespace {

uint32_t platformRandom(uint32_t upperBound) {
    static std::random_device device;
    if (upperBound == 0)
        return 0;
    return std::uniform_int_distribution<uint32_t>(0, upperBound - 1)(device);
}

std::vector<std::string> keysAsNames(std::span<const std::string_view> keys) { return {keys.begin(), keys.end()}; }

} // namespace

ChordsViewController::ChordsViewController(Services services, SharedState& state, ChordScreenModel& screen,
                                           RatingPrompt& rating)
    : random(platformRandom), s_(services), state_(state), screen_(screen), rating_(rating) {}

void ChordsViewController::viewDidLoad() {
    loadChordsTitle();
    loadChordList();
    preselectChord();
    setUkuleleFretboard();
}

void ChordsViewController::loadChordsTitle() {
    if (!ChordCatalogue::isChart(ukuleleType))
        return;
    screen_.chordsTitle1.text = s_.strings.localized("ChordsTitleGlobal");
    screen_.chordsTitle2.text = s_.strings.localized(std::string(ChordCatalogue::titleKey(ukuleleType)));
}

void ChordsViewController::wirePickers(int64_t variantTag) {
    screen_.selectRootChord.tag = 1;
    screen_.selectRootChord.rows = chordList_;
    screen_.selectVariant.tag = variantTag;
    screen_.selectVariant.rows = variantList_;
}

void ChordsViewController::loadChordList() {
    if (selectedLanguage >= 0 && selectedLanguage <= 5) {
        chordList_ = ChordCatalogue::rootNames(selectedLanguage, s_.strings);
        variantList_ = keysAsNames(ChordCatalogue::fullVariantKeys);
        wirePickers(2);
    }
    // The open tunings always show the string tables' root names, whatever naming
    // system the opener asked for.
    if (ukuleleType == 3 || ukuleleType == 4) {
        chordList_ = ChordCatalogue::rootNames(0, s_.strings);
        variantList_ = keysAsNames(ChordCatalogue::shortVariantKeys);
        wirePickers(ukuleleType);
    }
}

void ChordsViewController::preselectChord() {
    const auto r1 = static_cast<long>(random(8));
    const auto r2 = static_cast<long>(random(8));
    screen_.selectRootChord.selectedRow = static_cast<int>(r1);
    screen_.selectVariant.selectedRow = static_cast<int>(r2);
    didSelectRow(screen_.selectRootChord.tag, r1);
    didSelectRow(screen_.selectVariant.tag, r2);
    // Redraws once more, so opening counts two roots and three chords.
    displayChord();
    applyVariant();
}

long ChordsViewController::numberOfRowsInComponent(int64_t tag) const {
    if (tag == 1)
        return static_cast<long>(chordList_.size());
    if (tag == 2 || tag == 3 || tag == 4)
        return static_cast<long>(variantList_.size());
    return 0;
}

std::string ChordsViewController::titleForRow(int64_t tag, long row) const {
    const std::vector<std::string>& list = tag == 1 ? chordList_ : variantList_;
    if (row < 0 || static_cast<size_t>(row) >= list.size())
        return {};
    return list[static_cast<size_t>(row)];
}

void ChordsViewController::didSelectRow(int64_t tag, long row) {
    // The keys come from the fixed tables by row, never from the text shown.
    if (tag == 1 && row >= 0 && row <= 11) {
        currentChord_ = ChordCatalogue::rootKeys[static_cast<size_t>(row)];
        screen_.selectRootChord.selectedRow = static_cast<int>(row);
        displayChord();
        applyVariant();
    }
    if (tag == 2 && row >= 0 && row <= 14) {
        currentVariant_ = ChordCatalogue::fullVariantKeys[static_cast<size_t>(row)];
        screen_.selectVariant.selectedRow = static_cast<int>(row);
        applyVariant();
    }
    if ((tag == 3 || tag == 4) && row >= 0 && row <= 9) {
        currentVariant_ = ChordCatalogue::shortVariantKeys[static_cast<size_t>(row)];
        screen_.selectVariant.selectedRow = static_cast<int>(row);
        applyVariant();
    }
}

long ChordsViewController::bumpCounter(const char* key) {
    const long next = countedOnce(s_.settings.integerForKey(key));
    s_.settings.setInteger(key, next);
    s_.settings.synchronize();
    return next;
}

void ChordsViewController::drawCurrent(std::string_view variant) {
    Spelling spelling;
    if (state_.showFlatNames == 1 && state_.showSharpNames == 0)
        spelling = Spelling::Flats;
    else if (state_.showSharpNames == 1 && state_.showFlatNames == 0)
        spelling = Spelling::Sharps;
    else
        return;
    const ChordShape* shape = ChordShapeTable::find(ukuleleType, currentChord_, variant);
    if (!shape)
        return;
    Fretboard::draw(screen_, *shape, ChordCatalogue::chordName(currentChord_, variant, spelling));
}

void ChordsViewController::displayChord() {
    clearFretboard();
    chordsSearched_ = bumpCounter(keys::chordsSearched);
    drawCurrent("-");
    promptToReview();
}

void ChordsViewController::applyVariant() {
    clearFretboard();
    variantsSearched_ = bumpCounter(keys::variantsSearched);
    drawCurrent(currentVariant_);
}

void ChordsViewController::promptToReview() {
    const long chords = s_.settings.integerForKey(keys::chordsSearched);
    const long variants = s_.settings.integerForKey(keys::variantsSearched);
    s_.log.log(format("Acordes consultados:%ld", chords));
    s_.log.log(format("Variantes consultadas:%ld", variants));
    // Only these counts ask; after 25 roots this screen never asks again.
    if (chords == 5 || chords == 10 || chords == 15 || chords == 20 || chords == 25) {
        if (showRatingPromptIfDue)
            showRatingPromptIfDue();
        else
            rating_.tryToShowPrompt();
    }
}

void ChordsViewController::toggleSharpOfFlat() {
    const int64_t t = state_.accidentalToggle;
    state_.showSharpNames = t;
    state_.showFlatNames = 1 - t;
    displayChord();
    applyVariant();
    state_.accidentalToggle = state_.accidentalToggle ? 0 : 1;
    // The button offers the spelling the next press switches to.
    screen_.buttonFlatOrSharp.image = state_.accidentalToggle == 1 ? "sharp.png" : "flat.png";
}

void ChordsViewController::setUkuleleFretboard() {
    if (const auto picture = Fretboard::pictureFor(ukuleleType, s_.device.idiom(), s_.device.screenHeight()))
        screen_.ukuleleFretboard.image = *picture;
}

void ChordsViewController::clearFretboard() { Fretboard::clear(screen_); }

} // namespace uke
