// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QQmlPropertyMap>

#include "base/OutletChanges.h"
#include "base/OutletJson.h"

namespace uke {

// Mirrors a screen model into a property map the QML views bind to, one entry per
// outlet in the core's own format (the JSON `uke screen` prints and the page
// reads). A sync converts and touches only the outlets that changed, so bindings
// re-evaluate only where something moved.
class OutletMap : public QQmlPropertyMap {
    Q_OBJECT
public:
    using QQmlPropertyMap::QQmlPropertyMap;

    // Compares every outlet.
    template <class Model> void sync(const Model& model) {
        show([&](auto visit) { model.forEachOutlet(visit); });
    }
    // Compares only the tuner's read-out outlets.
    template <class Model> void syncReadout(const Model& model) {
        show([&](auto visit) { model.forEachReadoutOutlet(visit); });
    }

private:
    template <class Walk> void show(Walk&& walk) {
        changes_.compare(walk, [this](const char* name, const auto& outlet) { insert(name, outletJson(outlet)); });
    }
    void insert(const char* name, const std::string& json);

    OutletChanges changes_;
};

} // namespace uke
