// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QObject>
#include <QVariant>
#include <QtQml/qqmlregistration.h>

#include "app/Actions.h"

namespace uke {

class AppHost;

// One screen's actions as the views call them: by the name the app's table knows
// them by, with the control's value. The table decides and refuses; this only
// carries the call and then shows the views what changed.
class ScreenActions : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The host makes the screens' actions")
public:
    ScreenActions(AppHost& host, actions::Screen screen) : host_(host), screen_(screen) {}

    // Up to two arguments, numbers or on/off; false when the app refused the
    // action (its log says why).
    Q_INVOKABLE bool act(const QString& name, const QVariant& first = {}, const QVariant& second = {});

private:
    AppHost& host_;
    actions::Screen screen_;
};

} // namespace uke
