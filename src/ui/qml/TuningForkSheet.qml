// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import UkuleleTuner
import "Theme.js" as Theme

// The tuning fork: a reference tone for each string of the selected tuning, and a
// button that silences it. The buttons are titled by the note-naming code.
Sheet {
    id: sheet
    title: qsTr("Tuning Fork")
    property var o: App.tunerOutlets
    property var lay: App.layout
    property real u: lay.unit || 1

    // The buttons from left to right: strings 4, 3, 2, 1.
    function playFork(button) {
        switch (button) {
        case 0: App.tuner.act("playG392Hz"); break
        case 1: App.tuner.act("playC261_6Hz"); break
        case 2: App.tuner.act("playE329_6"); break
        case 3: App.tuner.act("playA440Hz"); break
        }
    }
    readonly property var buttonOutlets: [o.g4TFButton, o.c4TFButton, o.e4TFButton, o.a4TFButton]
    // String n's tone, when its button shows.
    function playString(n) {
        if (!buttonOutlets[4 - n].hidden)
            playFork(4 - n)
    }

    Column {
        id: content
        width: parent.width
        spacing: lay.margin * 0.75

        // What is sounding: the note and its exact frequency.
        Rectangle {
            width: parent.width
            height: lay.readoutHeight * 0.8
            radius: 14 * sheet.u
            color: Theme.background
            border.color: Theme.panelBorder
            Column {
                anchors.centerIn: parent
                spacing: 2 * sheet.u
                Text {
                    objectName: "tfnoteDisplay"
                    anchors.horizontalCenter: parent.horizontalCenter
                    text: o.tfnoteDisplay.text === "" ? "–" : o.tfnoteDisplay.text
                    visible: !o.tfnoteDisplay.hidden
                    color: Theme.accent
                    font.pixelSize: lay.noteFont * 0.8
                    font.bold: true
                }
                Text {
                    objectName: "tfFreqLabel"
                    anchors.horizontalCenter: parent.horizontalCenter
                    text: o.tfFreqLabel.text === "" ? qsTr("Tap a string") : o.tfFreqLabel.text
                    visible: !o.tfFreqLabel.hidden
                    color: o.tfFreqLabel.text === "" ? Theme.muted : Theme.text
                    font.pixelSize: lay.freqFont * 0.8
                }
            }
        }

        // One button per string, string 4 on the left as the strings lie on the head.
        Row {
            id: strings
            anchors.horizontalCenter: parent.horizontalCenter
            spacing: lay.margin * 0.5
            property real buttonSize: Math.min(lay.toolbarHeight * 1.15,
                                               (content.width - 3 * spacing) / 4)
            Repeater {
                model: [
                    { name: "g4TFButton", outlet: o.g4TFButton },
                    { name: "c4TFButton", outlet: o.c4TFButton },
                    { name: "e4TFButton", outlet: o.e4TFButton },
                    { name: "a4TFButton", outlet: o.a4TFButton }
                ]
                delegate: Rectangle {
                    objectName: modelData.name
                    width: strings.buttonSize; height: width
                    radius: width / 2
                    visible: !modelData.outlet.hidden
                    Accessible.role: Accessible.Button
                    Accessible.name: qsTr("Play %1").arg(modelData.outlet.title)
                    Accessible.onPressAction: sheet.playFork(index)
                    color: press.pressed ? Theme.accent : Theme.panel
                    border.color: Theme.accent
                    border.width: 2 * sheet.u
                    Text {
                        anchors.centerIn: parent
                        width: parent.width - 8 * sheet.u
                        horizontalAlignment: Text.AlignHCenter
                        fontSizeMode: Text.HorizontalFit
                        minimumPixelSize: 8
                        text: modelData.outlet.title
                        color: press.pressed ? Theme.background : Theme.text
                        font.pixelSize: lay.labelFont
                        font.bold: true
                    }
                    MouseArea { id: press; anchors.fill: parent; onClicked: sheet.playFork(index) }
                }
            }
        }

        Rectangle {
            objectName: "stopFreqPlayButton"
            Accessible.role: Accessible.Button
            Accessible.name: qsTr("Stop")
            Accessible.onPressAction: App.tuner.act("stopFreqPlay")
            anchors.horizontalCenter: parent.horizontalCenter
            width: Math.min(content.width, 200 * sheet.u)
            height: lay.labelFont * 2.2
            radius: height / 2
            color: stop.pressed ? Theme.danger : "transparent"
            border.color: Theme.danger
            border.width: 2 * sheet.u
            Text {
                anchors.centerIn: parent
                text: qsTr("Stop")
                color: stop.pressed ? Theme.background : Theme.danger
                font.pixelSize: lay.labelFont
                font.bold: true
            }
            MouseArea { id: stop; anchors.fill: parent; onClicked: App.tuner.act("stopFreqPlay") }
        }
    }
}
