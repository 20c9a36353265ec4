// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#include "ScreenActions.h"

#include <cmath>
#include <vector>

#include "AppHost.h"

namespace uke {

namespace {
// A switch hands a boolean, a slider or picker a number; anything else is no
// number at all, which the table refuses.
double number(const QVariant& v) {
    if (v.typeId() == QMetaType::Bool)
        return v.toBool() ? 1.0 : 0.0;
    bool ok = false;
    const double d = v.toDouble(&ok);
    return ok ? d : std::nan("");
}
} // namespace

bool ScreenActions::act(const QString& name, const QVariant& first, const QVariant& second) {
    std::vector<double> args;
    for (const QVariant* v : {&first, &second})
        if (v->isValid())
            args.push_back(number(*v));
    const bool done = actions::run(host_.app(), screen_, name.toStdString(), args).empty();
    host_.sync();
    return done;
}

} // namespace uke
