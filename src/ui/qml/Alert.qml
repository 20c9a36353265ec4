// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import UkuleleTuner
import "Theme.js" as Theme

// The app's own alert (the rating prompt's), over whatever screen is showing.
// Buttons come in the order the core gives them and report their position.
Item {
    id: alert
    objectName: "alert"
    property var model: App.alert
    property real u: App.layout.unit || 1
    anchors.fill: parent
    visible: model.visible || fade.running
    z: 100

    Rectangle {
        anchors.fill: parent
        color: "#000000"
        opacity: alert.model.visible ? 0.55 : 0
        Behavior on opacity { NumberAnimation { id: fade; duration: 150 } }
        // A modal alert: taps around it do nothing, and nothing reaches the screen below.
        MouseArea { objectName: "blocker"; anchors.fill: parent; hoverEnabled: true }
    }

    Rectangle {
        id: card
        objectName: "alertCard"
        Accessible.role: Accessible.AlertMessage
        Accessible.name: alert.model.title
        width: Math.min(alert.width - 48 * alert.u, 300 * alert.u)
        height: content.height
        anchors.centerIn: parent
        radius: 16 * alert.u
        color: Theme.panel
        border.color: Theme.panelBorder
        opacity: alert.model.visible ? 1 : 0
        scale: alert.model.visible ? 1 : 1.08
        Behavior on opacity { NumberAnimation { duration: 150 } }
        Behavior on scale { NumberAnimation { duration: 150; easing.type: Easing.OutCubic } }

        Column {
            id: content
            width: parent.width

            Item { width: 1; height: 20 * alert.u }
            Text {
                objectName: "alertTitle"
                x: 18 * alert.u; width: parent.width - 36 * alert.u
                horizontalAlignment: Text.AlignHCenter
                wrapMode: Text.WordWrap
                text: alert.model.title
                color: Theme.text
                font.pixelSize: 18 * alert.u
                font.bold: true
            }
            Item { width: 1; height: 8 * alert.u }
            Text {
                objectName: "alertMessage"
                x: 18 * alert.u; width: parent.width - 36 * alert.u
                horizontalAlignment: Text.AlignHCenter
                wrapMode: Text.WordWrap
                lineHeight: 1.15
                text: alert.model.message
                color: Theme.muted
                font.pixelSize: 14 * alert.u
            }
            Item { width: 1; height: 20 * alert.u }

            Repeater {
                model: alert.model.buttons
                delegate: Item {
                    objectName: "alertButton" + index
                    Accessible.role: Accessible.Button
                    Accessible.name: modelData
                    Accessible.onPressAction: alert.model.press(index)
                    property string title: modelData
                    width: content.width
                    height: 48 * alert.u
                    Rectangle {
                        width: parent.width; height: 1
                        color: Theme.panelBorder
                    }
                    Rectangle {
                        anchors.fill: parent
                        anchors.topMargin: 1
                        radius: index === alert.model.buttons.length - 1 ? card.radius : 0
                        color: press.pressed ? Theme.panelBorder : "transparent"
                    }
                    Text {
                        anchors.centerIn: parent
                        width: parent.width - 24 * alert.u
                        horizontalAlignment: Text.AlignHCenter
                        elide: Text.ElideRight
                        text: modelData
                        // The first button is the one the alert is for.
                        color: index === 0 ? Theme.accent : index === alert.model.buttons.length - 1 ? Theme.muted : Theme.text
                        font.pixelSize: 16 * alert.u
                        font.bold: index === 0
                    }
                    MouseArea {
                        id: press
                        anchors.fill: parent
                        onClicked: alert.model.press(index)
                    }
                }
            }
        }
    }
}
