// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QObject>
#include <QStringList>
#include <QtQml/qqmlregistration.h>

#include "platform/AlertPresenter.h"

namespace uke {

// The app's own alert, drawn by the QML view (Alert.qml) over the current screen.
class QmlAlertPresenter : public QObject, public AlertPresenter {
    Q_OBJECT
    QML_NAMED_ELEMENT(AlertModel)
    QML_UNCREATABLE("The host presents the app's alerts")
    Q_PROPERTY(bool visible READ visible NOTIFY changed)
    Q_PROPERTY(QString title READ title NOTIFY changed)
    Q_PROPERTY(QString message READ message NOTIFY changed)
    Q_PROPERTY(QStringList buttons READ buttons NOTIFY changed)
public:
    using QObject::QObject;
    void present(const std::string& title, const std::string& message, const std::vector<std::string>& buttons,
                 Handler handler) override;
    void dismiss() override;
    Q_INVOKABLE void press(int index);

    bool visible() const { return visible_; }
    QString title() const { return title_; }
    QString message() const { return message_; }
    QStringList buttons() const { return buttons_; }

signals:
    void changed();

private:
    bool visible_ = false;
    QString title_, message_;
    QStringList buttons_;
    Handler handler_;
};

} // namespace uke
