// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import UkuleleTuner
import "Theme.js" as Theme

// The about panel: two texts from the string tables, a button that asks for a
// rating and one that opens the maker's site.
Sheet {
    id: sheet
    title: qsTr("About")

    property var o: App.tunerOutlets
    property var lay: App.layout
    property real u: lay.unit || 1
    property real fontSize: lay.labelFont || 16

    component PanelButton: Rectangle {
        id: button
        property string text
        property bool primary: false
        signal clicked()
        Accessible.role: Accessible.Button
        Accessible.name: text
        Accessible.onPressAction: clicked()
        width: parent ? parent.width : 0
        height: Math.max(46 * sheet.u, sheet.fontSize * 2.8)
        radius: height / 2
        color: primary ? (tap.pressed ? Qt.darker(Theme.accent, 1.15) : Theme.accent)
                       : (tap.pressed ? Theme.panelBorder : "transparent")
        border.color: primary ? "transparent" : Theme.accent
        border.width: 1.5 * sheet.u
        Text {
            objectName: button.objectName + "Text"
            anchors.centerIn: parent
            width: parent.width - 24 * sheet.u
            horizontalAlignment: Text.AlignHCenter
            elide: Text.ElideRight
            text: button.text
            color: button.primary ? Theme.background : Theme.accent
            font.pixelSize: sheet.fontSize
            font.bold: true
        }
        MouseArea { id: tap; anchors.fill: parent; onClicked: button.clicked() }
    }

    Column {
        width: parent.width
        spacing: 14 * sheet.u

        Image {
            anchors.horizontalCenter: parent.horizontalCenter
            width: 64 * sheet.u; height: width
            source: "image://art/tuning_fork.png"
            sourceSize: Qt.size(Math.round(width * App.pixelScale), Math.round(height * App.pixelScale))
            fillMode: Image.PreserveAspectFit
        }
        Text {
            width: parent.width
            horizontalAlignment: Text.AlignHCenter
            text: qsTr("Ukulele Tuner")
            color: Theme.text
            font.pixelSize: (lay.titleFont || 21)
            font.bold: true
        }
        Text {
            objectName: "aboutCongratsMessage"
            width: parent.width
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.WordWrap
            text: o.aboutCongratsMessage.text
            visible: !o.aboutCongratsMessage.hidden
            color: Theme.text
            font.pixelSize: sheet.fontSize
            lineHeight: 1.15
        }
        Text {
            objectName: "aboutMsg2"
            width: parent.width
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.WordWrap
            text: o.aboutMsg2.text
            visible: !o.aboutMsg2.hidden
            color: Theme.muted
            font.pixelSize: sheet.fontSize * 0.9
            lineHeight: 1.15
        }
        Item { width: 1; height: 4 * sheet.u }
        PanelButton {
            objectName: "reviewButton"
            primary: true
            text: qsTr("Rate the app")
            onClicked: App.tuner.act("reviewQuenby")
        }
        PanelButton {
            objectName: "makerButton"
            text: qsTr("Visit the maker")
            onClicked: App.tuner.act("redirectToMorvaneLabs")
        }
    }
}
