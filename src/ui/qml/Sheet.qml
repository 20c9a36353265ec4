// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import UkuleleTuner
import "Theme.js" as Theme

// A panel over the tuner screen: it slides up from the bottom on a phone and sits
// centred on a pad. Closing it leaves the tuner as it was. Content taller than
// the screen scrolls inside the card.
Item {
    id: sheet
    property string title: ""
    // Which of the app's panels this is; the app says which one is open.
    property string panel: ""
    readonly property bool open: panel !== "" && App.panel === panel
    property real unit: App.layout.unit || 1
    default property alias content: body.data
    // 0 closed, 1 open. Only opening and closing animate it, so the sheet stays out
    // of sight while the window takes its size.
    property real progress: open ? 1 : 0
    Behavior on progress { NumberAnimation { duration: 220; easing.type: Easing.OutCubic } }
    anchors.fill: parent
    visible: progress > 0

    function close() { App.tuner.act("closePanel") }

    Rectangle {
        anchors.fill: parent
        color: "#000000"
        opacity: 0.55 * sheet.progress
        // Tapping beside the card closes it, as Done and Escape do.
        MouseArea { objectName: "blocker"; anchors.fill: parent; onClicked: sheet.close() }
    }
    Rectangle {
        id: card
        objectName: "sheetCard"
        readonly property real topRoom: App.layout.topInset || 20
        readonly property real bottomRoom: App.isPad ? topRoom : 0
        readonly property real wanted: header.height + body.y + body.height + 16 * sheet.unit + (App.layout.bottomInset || 0)
        width: Math.min(parent.width, App.layout.sheetWidth || parent.width)
        height: Math.min(parent.height - topRoom - bottomRoom, wanted)
        anchors.horizontalCenter: parent.horizontalCenter
        readonly property real restY: App.isPad ? (parent.height - height) / 2 : parent.height - height
        y: parent.height + (restY - parent.height) * sheet.progress
        radius: 18 * sheet.unit
        color: Theme.panel
        border.color: Theme.panelBorder
        clip: true
        Accessible.role: Accessible.Dialog
        Accessible.name: sheet.title
        MouseArea { objectName: "blocker"; anchors.fill: parent }  // keeps taps on the card from closing it

        // On a phone the card runs off the bottom edge: square off its lower corners.
        Rectangle {
            visible: !App.isPad
            anchors.bottom: parent.bottom
            width: parent.width; height: parent.radius
            color: parent.color
        }

        Item {
            id: header
            width: parent.width; height: 52 * sheet.unit
            Rectangle {
                anchors.horizontalCenter: parent.horizontalCenter
                y: 6 * sheet.unit
                width: 36 * sheet.unit; height: 5 * sheet.unit; radius: height / 2
                color: Theme.panelBorder
                visible: !App.isPad
            }
            Text {
                anchors.centerIn: parent
                text: sheet.title
                color: Theme.text
                font.pixelSize: 18 * sheet.unit
                font.bold: true
            }
            Text {
                objectName: "sheetDone"
                Accessible.role: Accessible.Button
                Accessible.name: text
                Accessible.onPressAction: sheet.close()
                anchors.right: parent.right; anchors.rightMargin: 16 * sheet.unit
                anchors.verticalCenter: parent.verticalCenter
                text: qsTr("Done")
                color: Theme.accent
                font.pixelSize: 16 * sheet.unit
                font.bold: true
                MouseArea { anchors.fill: parent; anchors.margins: -10; onClicked: sheet.close() }
            }
            Rectangle {
                anchors.bottom: parent.bottom
                width: parent.width; height: 1
                color: Theme.panelBorder
            }
        }
        Flickable {
            id: scroller
            objectName: "sheetScroller"
            anchors.top: header.bottom
            anchors.bottom: parent.bottom
            width: parent.width
            contentHeight: body.y + body.height + 16 * sheet.unit + (App.layout.bottomInset || 0)
            interactive: contentHeight > height
            boundsBehavior: Flickable.StopAtBounds
            clip: true
            Item {
                id: body
                x: 16 * sheet.unit
                y: 16 * sheet.unit
                width: scroller.width - 32 * sheet.unit
                height: childrenRect.height
            }
        }
    }
}
