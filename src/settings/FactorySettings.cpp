// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/FactorySettings.h"

#include "base/SettingsKeys.h"

namespace uke {

void storeFactorySettings(SettingsStore& st) {
    st.setInteger(keys::SavedLanguage, 1);
    st.setInteger(keys::savedSliderValue, 5);
    st.setBool(keys::soundNotificationEnabled, true);
    st.setBool(keys::stringSoundsEnabled, false);
    st.setBool(keys::frequencyChartEnabled, true);
    st.setInteger(keys::savedA4Calibration, 440);
    st.setInteger(keys::numberOfRuns, 1);
}

} // namespace uke
