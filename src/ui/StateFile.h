// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QString>

#include "base/OutletChanges.h"
#include "base/TunerScreenModel.h"

namespace uke {

// `--state-out`: the tuner's outlets in the core's own format ({"outlets": ...},
// as `uke screen --format json` prints them), rewritten whole whenever one moved,
// for a script watching a running app. Each write replaces the file at once, so a
// reader never sees half of one.
class StateFile {
public:
    explicit StateFile(QString path) : path_(std::move(path)) {}
    void update(const TunerScreenModel& screen);

private:
    QString path_;
    OutletChanges changes_;
};

} // namespace uke
