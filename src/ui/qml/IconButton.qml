// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import UkuleleTuner
import "Theme.js" as Theme

// A round, image-or-text button of the toolbar and title row.
Item {
    id: root
    property string icon: ""
    property string text: ""
    property real fontSize: 14
    // What a screen reader says for it.
    property string name: text
    signal clicked()
    Accessible.role: Accessible.Button
    Accessible.name: name
    Accessible.onPressAction: if (enabled) root.clicked()
    width: 44; height: 44
    opacity: enabled ? 1.0 : 0.4

    Rectangle {
        anchors.fill: parent
        radius: width / 2
        color: mouse.pressed ? Theme.panelBorder : "transparent"
    }
    Image {
        anchors.centerIn: parent
        width: parent.width * 0.72; height: parent.height * 0.72
        source: root.icon === "" ? "" : "image://art/" + root.icon
        sourceSize: Qt.size(Math.round(width * App.pixelScale), Math.round(height * App.pixelScale))
        fillMode: Image.PreserveAspectFit
        visible: root.icon !== ""
    }
    Text {
        anchors.centerIn: parent
        visible: root.icon === ""
        text: root.text
        color: Theme.text
        font.pixelSize: root.fontSize
        font.bold: true
    }
    MouseArea { id: mouse; anchors.fill: parent; onClicked: root.clicked() }
}
