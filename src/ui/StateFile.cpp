// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#include "StateFile.h"

#include <QSaveFile>

#include "base/OutletJson.h"

namespace uke {

void StateFile::update(const TunerScreenModel& screen) {
    if (!changes_.moved([&](auto visit) { screen.forEachOutlet(visit); }))
        return;
    QSaveFile f(path_);
    if (f.open(QIODevice::WriteOnly)) {
        f.write(QByteArray::fromStdString("{\"outlets\": " + outletsJson(screen) + "}\n"));
        f.commit();
    }
}

} // namespace uke
