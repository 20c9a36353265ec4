// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import UkuleleTuner
import "Theme.js" as Theme

// The tuner screen: written once, sized by the layout of the device class.
Item {
    id: screen
    property var o: App.tunerOutlets
    property var lay: App.layout
    property var geo: App.geometry.headstock
    property real u: lay.unit || 1

    readonly property var stringLabels: [o.firstString, o.secondString, o.thirdString, o.fourthString]
    // String n's recording, when its label (the button that plays it) shows.
    function playString(n) {
        if (stringLabels[n - 1].hidden)
            return
        switch (n) {
        case 1: App.tuner.act("play1stStringSound"); break
        case 2: App.tuner.act("play2ndStringSound"); break
        case 3: App.tuner.act("play3rdStringSound"); break
        case 4: App.tuner.act("play4thStringSound"); break
        }
    }

    Rectangle {
        anchors.fill: parent
        gradient: Gradient {
            GradientStop { position: 0.0; color: Theme.backgroundTop }
            GradientStop { position: 0.55; color: Theme.background }
        }
    }

    // Title row: the tuning's name between the arrows.
    Item {
        id: titleRow
        y: lay.topInset
        width: parent.width; height: lay.titleHeight
        IconButton {
            objectName: "showPreviousTuningButton"
            name: qsTr("Previous tuning")
            anchors.left: parent.left; anchors.leftMargin: lay.margin / 2
            anchors.verticalCenter: parent.verticalCenter
            width: lay.titleHeight; height: lay.titleHeight
            icon: "arrow_left.png"
            visible: !o.showPreviousTuningButton.hidden
            onClicked: App.tuner.act("showPreviousTuning")
        }
        Text {
            objectName: "currentTuningName"
            anchors.centerIn: parent
            width: parent.width - 2.4 * lay.titleHeight
            horizontalAlignment: Text.AlignHCenter
            elide: Text.ElideRight
            text: o.currentTuningName.text
            Accessible.role: Accessible.StaticText
            Accessible.name: qsTr("Tuning: %1").arg(text)
            color: Theme.text
            font.pixelSize: lay.titleFont
            font.bold: true
        }
        IconButton {
            objectName: "showNextTuningButton"
            name: qsTr("Next tuning")
            anchors.right: parent.right; anchors.rightMargin: lay.margin / 2
            anchors.verticalCenter: parent.verticalCenter
            width: lay.titleHeight; height: lay.titleHeight
            icon: "arrow_right.png"
            visible: !o.showNextTuningButton.hidden
            onClicked: App.tuner.act("showNextTuning")
        }
    }

    // Read-out: note, frequency and the in-tune lamp.
    Item {
        id: readout
        anchors.top: titleRow.bottom
        width: parent.width; height: lay.readoutHeight
        Rectangle {
            anchors.fill: parent
            anchors.leftMargin: lay.margin; anchors.rightMargin: lay.margin
            radius: 14 * u
            color: Theme.panel
            border.color: Theme.panelBorder
        }
        Column {
            anchors.verticalCenter: parent.verticalCenter
            x: lay.margin * 2
            spacing: 2 * u
            Text {
                objectName: "noteDisplay"
                text: o.noteDisplay.text === "" ? "–" : o.noteDisplay.text
                Accessible.role: Accessible.StaticText
                Accessible.name: o.noteDisplay.text === "" ? qsTr("No note") : qsTr("Note: %1").arg(o.noteDisplay.text)
                color: App.inTune ? Theme.good : Theme.text
                font.pixelSize: lay.noteFont
                font.bold: true
            }
            Text {
                objectName: "freq_label"
                text: o.freq_label.text !== "" ? o.freq_label.text : App.idleReadout
                Accessible.role: Accessible.StaticText
                Accessible.name: text
                color: o.freq_label.text === "" ? Theme.muted : Theme.text
                font.pixelSize: lay.freqFont
            }
        }
        OutletImage {
            objectName: "LEDDisplay"
            anchors.right: parent.right; anchors.rightMargin: lay.margin * 2
            anchors.verticalCenter: parent.verticalCenter
            width: lay.readoutHeight * 0.62; height: width
            outlet: o[App.lampOutlet]
            Accessible.role: Accessible.Indicator
            Accessible.name: App.inTune ? qsTr("In tune") : qsTr("Not in tune")
        }
    }

    // The instrument's head, with the highlight and the peg rings laid over it.
    Item {
        id: head
        anchors.horizontalCenter: parent.horizontalCenter
        y: readout.y + readout.height + lay.margin
        width: lay.headWidth; height: lay.headHeight
        property real sx: width / geo.width
        property real sy: height / geo.height
        Image {
            anchors.fill: parent
            source: "image://art/headstock.png"
            sourceSize: Qt.size(Math.round(width * App.pixelScale), Math.round(height * App.pixelScale))
        }
        OutletImage { anchors.fill: parent; outlet: o.tunedString; objectName: "tunedString" }
        OutletImage { anchors.fill: parent; outlet: o.tunedString5; objectName: "tunedString5" }
        OutletImage { anchors.fill: parent; outlet: o.tunedStringiPad; objectName: "tunedStringiPad" }
        // Each peg has its own ring view; the picture in it is whatever the logic names.
        Repeater {
            model: [o.ring1, o.ring2, o.ring3, o.ring4]
            delegate: OutletImage {
                property var peg: geo.pegs[String(index + 1)]
                objectName: "ring" + (index + 1)
                outlet: modelData
                width: 62 * head.sx; height: width
                x: peg.x * head.sx - width / 2
                y: peg.y * head.sy - height / 2
            }
        }

        // String names beside their pegs; a tap plays the string's recording.
        Repeater {
            model: [
                { n: 1, label: o.firstString },
                { n: 2, label: o.secondString },
                { n: 3, label: o.thirdString },
                { n: 4, label: o.fourthString }
            ]
            delegate: Rectangle {
                property var peg: geo.pegs[String(modelData.n)]
                property bool onRight: modelData.n <= 2
                objectName: ["firstString", "secondString", "thirdString", "fourthString"][modelData.n - 1]
                width: Math.max(lay.labelFont * 3.2, labelText.implicitWidth + lay.labelFont)
                height: lay.labelFont * 2
                radius: height / 2
                color: Theme.panel
                border.color: Theme.panelBorder
                x: onRight ? peg.x * head.sx + 26 * head.sx : peg.x * head.sx - 26 * head.sx - width
                y: peg.y * head.sy - height / 2
                visible: !modelData.label.hidden
                Accessible.role: Accessible.Button
                Accessible.name: qsTr("Play %1").arg(modelData.label.text)
                Accessible.onPressAction: screen.playString(modelData.n)
                Text {
                    id: labelText
                    anchors.centerIn: parent
                    text: modelData.label.text
                    color: Theme.text
                    font.pixelSize: lay.labelFont
                    font.bold: true
                }
                MouseArea { anchors.fill: parent; onClicked: screen.playString(modelData.n) }
            }
        }
    }

    // The frequency chart: each string's note and target.
    Grid {
        id: chart
        anchors.horizontalCenter: parent.horizontalCenter
        y: head.y + head.height + lay.margin
        columns: 2
        columnSpacing: lay.margin * 2
        rowSpacing: 4 * u
        Repeater {
            model: [o.fourthStringNoteAndFreq, o.thirdStringNoteAndFreq, o.secondStringNoteAndFreq, o.firstStringNoteAndFreq]
            delegate: Text {
                objectName: ["fourthStringNoteAndFreq", "thirdStringNoteAndFreq", "secondStringNoteAndFreq", "firstStringNoteAndFreq"][index]
                width: (screen.width - 6 * lay.margin) / 2
                horizontalAlignment: index % 2 ? Text.AlignLeft : Text.AlignRight
                text: modelData.text
                visible: !modelData.hidden
                color: Theme.muted
                font.pixelSize: lay.labelFont
            }
        }
    }

    // Toolbar.
    Row {
        id: toolbar
        anchors.horizontalCenter: parent.horizontalCenter
        y: parent.height - lay.bottomInset - lay.toolbarHeight
        height: lay.toolbarHeight
        spacing: (screen.width - 4 * lay.toolbarHeight) / 5
        IconButton {
            objectName: "settingsButton"
            name: qsTr("Settings")
            width: lay.toolbarHeight; height: lay.toolbarHeight
            icon: "settings.png"
            onClicked: App.tuner.act("openSettings")
        }
        IconButton {
            objectName: "tuningForkButton"
            name: qsTr("Tuning fork")
            width: lay.toolbarHeight; height: lay.toolbarHeight
            icon: "tuning_fork.png"
            enabled: !o.tuningForkButton.hidden
            onClicked: App.tuner.act("openTuningFork")
        }
        IconButton {
            objectName: "goToChordsLibraryButton"
            name: qsTr("Chord library")
            width: lay.toolbarHeight; height: lay.toolbarHeight
            icon: o.goToChordsLibraryButton.image || ""
            onClicked: App.tuner.act("openChords")
        }
        IconButton {
            objectName: "aboutButton"
            name: qsTr("About")
            width: lay.toolbarHeight; height: lay.toolbarHeight
            icon: "about.png"
            onClicked: App.tuner.act("openAbout")
        }
    }
}
