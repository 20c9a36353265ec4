// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <string>

#include "base/SharedState.h"
#include "base/TunerScreenModel.h"
#include "platform/DeviceInfo.h"
#include "platform/SettingsStore.h"
#include "platform/StringTable.h"

namespace uke {

// The naming-system picker and the note texts it chooses for the strings, the
// tuning-fork buttons and the frequency chart.
class NoteNamePicker {
public:
    NoteNamePicker(const StringTable& strings, DeviceInfo& device, SettingsStore& settings, SharedState& state,
                   TunerScreenModel& screen)
        : strings_(strings), device_(device), settings_(settings), state_(state), screen_(screen) {}

    void loadPickerViewSettings();
    long numberOfRowsInComponent() const;
    std::string titleForRow(long row) const;
    void didSelectRow(long row);
    void localizeNotes();
    void overrideDefaultLanguage();

private:
    const StringTable& strings_;
    DeviceInfo& device_;
    SettingsStore& settings_;
    SharedState& state_;
    TunerScreenModel& screen_;
};

} // namespace uke
