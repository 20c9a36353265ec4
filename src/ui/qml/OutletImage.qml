// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import UkuleleTuner

// An image view bound to an outlet: shows the outlet's picture unless it is hidden.
Image {
    property var outlet
    source: outlet && outlet.image ? "image://art/" + outlet.image : ""
    visible: !!outlet && !outlet.hidden && source != ""
    sourceSize: Qt.size(Math.max(1, Math.round(width * App.pixelScale)), Math.max(1, Math.round(height * App.pixelScale)))
    fillMode: Image.PreserveAspectFit
    smooth: true
    cache: false
}
