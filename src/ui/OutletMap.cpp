#include "OutletMap.h"

#include <QStringList>

namespace uke {

namespace {
QString imageSource(const std::string& name) {
    return name.empty() ? QString() : QStringLiteral("image://art/") + QString::fromStdString(name);
}
} // namespace

QVariantMap toVariant(const Label& o) {
    return {{"text", QString::fromStdString(o.text)}, {"hidden", o.hidden}};
}

QVariantMap toVariant(const ImageView& o) {
    return {{"image", QString::fromStdString(o.image)}, {"source", imageSource(o.image)}, {"hidden", o.hidden}};
}

QVariantMap toVariant(const Button& o) {
    return {{"title", QString::fromStdString(o.title)},
            {"image", QString::fromStdString(o.image)},
            {"source", imageSource(o.image)},
            {"hidden", o.hidden}};
}

QVariantMap toVariant(const Switch& o) { return {{"on", o.on}, {"hidden", o.hidden}}; }

QVariantMap toVariant(const Slider& o) {
    return {{"value", o.value}, {"minimum", o.minimum}, {"maximum", o.maximum}, {"hidden", o.hidden}};
}

QVariantMap toVariant(const Stepper& o) {
    return {{"value", o.value},
            {"minimum", o.minimum},
            {"maximum", o.maximum},
            {"stepValue", o.stepValue},
            {"hidden", o.hidden}};
}

QVariantMap toVariant(const Picker& o) {
    QStringList rows;
    for (const auto& r : o.rows)
        rows << QString::fromStdString(r);
    return {{"rows", rows}, {"selectedRow", o.selectedRow}, {"tag", o.tag}, {"scale", o.scale}, {"hidden", o.hidden}};
}

void OutletMap::update(const char* name, const QVariantMap& value) {
    const QString key = QString::fromLatin1(name);
    if (contains(key) && this->value(key).toMap() == value)
        return;
    insert(key, value);
}

} // namespace uke
