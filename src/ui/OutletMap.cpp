// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#include "OutletMap.h"

#include <QJsonDocument>
#include <QJsonObject>

namespace uke {

void OutletMap::insert(const char* name, const std::string& json) {
    const QJsonObject value = QJsonDocument::fromJson(QByteArray::fromStdString(json)).object();
    QQmlPropertyMap::insert(QString::fromLatin1(name), value.toVariantMap());
}

} // namespace uke
