// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QGuiApplication>
#include <QQuickWindow>

namespace uke::test {

// One application object for the whole test program, offscreen and with the
// software renderer so that pictures are the same on every machine.
inline QGuiApplication& ensureQtApp() {
    static int argc = 1;
    static char name[] = "uke-tests";
    static char* argv[] = {name, nullptr};
    static QGuiApplication* app = [] {
        if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
            qputenv("QT_QPA_PLATFORM", "offscreen");
        QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
        return new QGuiApplication(argc, argv);
    }();
    return *app;
}

} // namespace uke::test
