#pragma once
#include <QQmlPropertyMap>
#include <QVariantMap>

#include "base/Outlets.h"

namespace uke {

// Converts outlets to the values the QML views bind to.
QVariantMap toVariant(const Label& o);
QVariantMap toVariant(const ImageView& o);
QVariantMap toVariant(const Button& o);
QVariantMap toVariant(const Switch& o);
QVariantMap toVariant(const Slider& o);
QVariantMap toVariant(const Stepper& o);
QVariantMap toVariant(const Picker& o);

// Mirrors a screen model into a property map; a sync touches only outlets whose
// value changed, so bindings re-evaluate only where something moved.
class OutletMap : public QQmlPropertyMap {
    Q_OBJECT
public:
    using QQmlPropertyMap::QQmlPropertyMap;

    // Compares every outlet.
    template <class Model> void sync(const Model& model) {
        model.forEachOutlet([this](const char* name, const auto& outlet) { update(name, toVariant(outlet)); });
    }
    // Compares only the tuner's read-out outlets.
    template <class Model> void syncReadout(const Model& model) {
        model.forEachReadoutOutlet([this](const char* name, const auto& outlet) { update(name, toVariant(outlet)); });
    }

private:
    void update(const char* name, const QVariantMap& value);
};

} // namespace uke
