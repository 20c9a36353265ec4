// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/NoteNamePicker.h"

#include "base/Format.h"
#include "base/LayoutClass.h"
#include "base/SettingsKeys.h"
#include "base/TuningCatalogue.h"
#include "platform/Log.h"
#include "settings/NoteNaming.h"

namespace uke {

void NoteNamePicker::loadPickerViewSettings() {
    Picker& picker = screen_.establecerIdioma;
    picker.rows.clear();
    for (int i = 0; i < 6; ++i)
        picker.rows.push_back(strings_.localized("Lang" + std::to_string(i)));
    if (const auto scale = pickerScaleFor(device_.idiom(), device_.screenHeight()))
        picker.scale = *scale;
}

long NoteNamePicker::numberOfRowsInComponent() const { return static_cast<long>(screen_.establecerIdioma.rows.size()); }

std::string NoteNamePicker::titleForRow(long row) const {
    const auto& rows = screen_.establecerIdioma.rows;
    return row >= 0 && static_cast<size_t>(row) < rows.size() ? rows[static_cast<size_t>(row)] : std::string{};
}

void NoteNamePicker::didSelectRow(long row) {
    if (row < 0 || row > 5)
        return;
    screen_.establecerIdioma.selectedRow = static_cast<int>(row);
    state_.languageIndex = row;
    settings_.setInteger(keys::SavedLanguage, row);
    settings_.synchronize();
}

void NoteNamePicker::localizeNotes() {
    if (!TuningCatalogue::contains(state_.chosenTuning))
        return;
    const Tuning& t = TuningCatalogue::tuning(state_.chosenTuning);
    Label* notes[4] = {&screen_.firstString, &screen_.secondString, &screen_.thirdString, &screen_.fourthString};
    Label* chart[4] = {&screen_.firstStringNoteAndFreq, &screen_.secondStringNoteAndFreq,
                       &screen_.thirdStringNoteAndFreq, &screen_.fourthStringNoteAndFreq};
    Button* buttons[4] = {&screen_.a4TFButton, &screen_.e4TFButton, &screen_.c4TFButton, &screen_.g4TFButton};
    for (size_t i = 0; i < 4; ++i) {
        const std::string name(pitchName(t.strings[i]));
        notes[i]->text = name;
        if (state_.frequencyChartOn)
            chart[i]->text = name + format(" = %.1fHz", state_.targets[t.strings[i]].target);
        buttons[i]->title = name;
    }
    screen_.calibrationLabel.text = strings_.localized("CalibrationTitle");
    screen_.hZLabel.text = strings_.localized("HzTitle");
}

void NoteNamePicker::overrideDefaultLanguage() {
    const int64_t tuning = state_.chosenTuning;
    if (tuning != 1 && tuning != 2)
        return;
    // Both the stored row and this process's row must agree: after a relaunch the
    // process starts at row 1 while the store keeps the old choice, and then the
    // letters of localizeNotes stay. Deliberate.
    const long saved = settings_.integerForKey(keys::SavedLanguage);
    const long row = state_.languageIndex;
    if (row != saved)
        return;

    Label* notes[4] = {&screen_.firstString, &screen_.secondString, &screen_.thirdString, &screen_.fourthString};
    if (row == static_cast<long>(NoteNamingSystem::DeviceLanguage)) {
        // Every label gets octave 4, also the three tuning-2 strings that sound in octave 3.
        const auto& noteKeys = deviceLanguageNoteKeys(tuning);
        for (size_t i = 0; i < 4; ++i)
            notes[i]->text = fillObjectFormat(strings_.localized(noteKeys[i]), "4");
        return;
    }
    const NamedStrings* named = namedStrings(row, tuning);
    if (!named)
        return;
    Label* chart[4] = {&screen_.firstStringNoteAndFreq, &screen_.secondStringNoteAndFreq,
                       &screen_.thirdStringNoteAndFreq, &screen_.fourthStringNoteAndFreq};
    Button* buttons[4] = {&screen_.a4TFButton, &screen_.e4TFButton, &screen_.c4TFButton, &screen_.g4TFButton};
    const auto& pitches = namedPitches(tuning);
    const bool writeChart = state_.frequencyChartOn || !named->honoursChartSwitch;
    for (size_t i = 0; i < 4; ++i) {
        notes[i]->text = named->notes[i];
        if (writeChart)
            chart[i]->text = format(named->chartFormats[i], state_.targets[pitches[i]].target);
        buttons[i]->title = named->buttons[i];
    }
}

} // namespace uke
