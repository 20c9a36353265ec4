// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import UkuleleTuner
import QtQuick.Controls.Basic
import "Theme.js" as Theme

// The chord library: titles, the chord's name with the spelling switch, the
// fretboard with its marks, and the root and chord-type pickers. Sizes come from
// the layout of the device class; the marks sit where geometry.json puts them on
// the neck pictures.
Rectangle {
    id: screen
    property var o: App.chordOutlets
    property var lay: App.layout
    property var geo: App.geometry.fretboard
    property real u: lay.unit || 1

    // Room left over once the fixed blocks are placed, shared out between them.
    readonly property real usable: height - lay.topInset - lay.bottomInset
    readonly property real titleBlock: lay.titleHeight * 1.3
    readonly property real nameBlock: lay.noteFont * 1.45
    readonly property real gap: Math.max(lay.margin / 3, (usable - titleBlock - nameBlock - boardBox.height
                                                          - pickers.height) / 4)

    color: Theme.background
    gradient: Gradient {
        GradientStop { position: 0.0; color: Theme.backgroundTop }
        GradientStop { position: 0.5; color: Theme.background }
    }

    // Swallows touches so that nothing reaches the tuner screen underneath.
    MouseArea { objectName: "blocker"; anchors.fill: parent }

    component OutletLabel: Text {
        property var outlet
        text: outlet ? outlet.text : ""
        visible: !!outlet && !outlet.hidden
        horizontalAlignment: Text.AlignHCenter
        elide: Text.ElideRight
    }

    // A picker wheel bound to a picker outlet: rows and selection come from the
    // outlet; a row that the user settles on goes back to the picker's action.
    component PickerWheel: Tumbler {
        id: wheel
        property var outlet
        readonly property int modelRow: outlet ? outlet.value : 0
        readonly property real rowHeight: height / visibleItemCount
        model: outlet ? outlet.rows : []
        visible: !!outlet && !outlet.hidden
        visibleItemCount: 5
        wrap: false
        clip: true
        Accessible.role: Accessible.List

        function report() {
            if (!outlet || count === 0 || currentIndex < 0 || currentIndex === outlet.value)
                return
            App.chords.act("didSelectRow", outlet.tag, currentIndex)
        }
        // A row tapped, pressed by a screen reader or reached by a key.
        function choose(row) {
            currentIndex = row
            report()
        }
        // One row up or down, as a flick that settles on the next row would.
        function step(rows) {
            const row = Math.max(0, Math.min(count - 1, currentIndex + rows))
            if (row !== currentIndex)
                choose(row)
        }
        onModelRowChanged: if (currentIndex !== modelRow) currentIndex = modelRow
        onCountChanged: if (currentIndex !== modelRow) currentIndex = modelRow
        Component.onCompleted: currentIndex = modelRow
        onMovingChanged: if (!moving) report()

        delegate: Text {
            required property var modelData
            required property int index
            text: modelData
            Accessible.role: Accessible.ListItem
            Accessible.name: modelData
            Accessible.onPressAction: wheel.choose(index)
            color: index === wheel.currentIndex ? Theme.text : Theme.muted
            font.pixelSize: Math.min(App.layout.titleFont * 1.15, wheel.rowHeight * 0.52)
            font.bold: index === wheel.currentIndex
            horizontalAlignment: Text.AlignHCenter
            verticalAlignment: Text.AlignVCenter
            elide: Text.ElideRight
            opacity: 1.0 - Math.abs(Tumbler.displacement) / (wheel.visibleItemCount / 2 + 0.4)
            MouseArea {
                anchors.fill: parent
                onClicked: wheel.choose(index)
            }
        }
    }

    // Title: back to the tuner, and the two title lines.
    Item {
        id: titleRow
        y: lay.topInset
        width: parent.width
        height: titleBlock
        IconButton {
            objectName: "chordsBack"
            name: qsTr("Back to the tuner")
            anchors.left: parent.left
            anchors.leftMargin: lay.margin / 2
            anchors.verticalCenter: parent.verticalCenter
            width: lay.titleHeight; height: lay.titleHeight
            icon: "arrow_left.png"
            onClicked: App.chords.act("closeChords")
        }
        Column {
            anchors.centerIn: parent
            width: parent.width - 2.6 * lay.titleHeight
            spacing: 2 * u
            OutletLabel {
                objectName: "chordsTitle1"
                width: parent.width
                outlet: o.chordsTitle1
                color: Theme.text
                font.pixelSize: lay.titleFont
                font.bold: true
            }
            OutletLabel {
                objectName: "chordsTitle2"
                width: parent.width
                outlet: o.chordsTitle2
                color: Theme.muted
                font.pixelSize: lay.labelFont
            }
        }
    }

    // The chord's name, with the spelling switch beside it.
    Item {
        id: nameRow
        y: titleRow.y + titleRow.height + gap
        width: parent.width
        height: nameBlock
        OutletLabel {
            id: chordName
            objectName: "chordDisplay"
            anchors.centerIn: parent
            // Leaves room for the switch on either side so the name stays centred.
            width: parent.width - 2 * (spellingSwitch.width + 2 * lay.margin)
            height: parent.height
            verticalAlignment: Text.AlignVCenter
            outlet: o.chordDisplay
            Accessible.role: Accessible.StaticText
            Accessible.name: text
            color: Theme.accent
            font.pixelSize: lay.noteFont
            font.bold: true
            fontSizeMode: Text.HorizontalFit
            minimumPixelSize: Math.round(lay.noteFont / 2)
        }
        Rectangle {
            id: spellingSwitch
            objectName: "buttonFlatOrSharp"
            property var outlet: o.buttonFlatOrSharp
            readonly property string icon: outlet && outlet.image ? outlet.image : ""
            signal clicked()
            onClicked: App.chords.act("toggleSharpOfFlat")
            Accessible.role: Accessible.Button
            Accessible.name: qsTr("Sharps or flats")
            Accessible.onPressAction: clicked()
            anchors.verticalCenter: parent.verticalCenter
            x: Math.min(parent.width - width - lay.margin / 2,
                        chordName.x + (chordName.width + chordName.contentWidth) / 2 + lay.margin)
            width: nameRow.height * 0.95; height: width
            radius: width / 2
            visible: !!outlet && !outlet.hidden
            color: switchMouse.pressed ? Theme.panelBorder : Theme.panel
            border.color: Theme.panelBorder
            border.width: Math.max(1, 1.5 * u)
            Image {
                anchors.centerIn: parent
                width: parent.width * 0.62; height: width
                source: spellingSwitch.icon ? "image://art/" + spellingSwitch.icon : ""
                sourceSize: Qt.size(Math.round(width * App.pixelScale), Math.round(height * App.pixelScale))
                fillMode: Image.PreserveAspectFit
            }
            MouseArea {
                id: switchMouse
                anchors.fill: parent
                onClicked: spellingSwitch.clicked()
            }
        }
    }

    // The fretboard: the neck picture with status marks, 16 cells and the fret numbers.
    Item {
        id: boardBox
        anchors.horizontalCenter: parent.horizontalCenter
        y: nameRow.y + nameRow.height + gap
        readonly property real layoutScale: Math.min(lay.fretboardWidth / geo.width,
                                                     lay.fretboardHeight / geo.height)
        // The board takes up to a third more than the layout gives it where the
        // screen has height to spare, so that the marks read well on tall screens.
        readonly property real room: usable - titleBlock - nameBlock - lay.pickerHeight - 2 * lay.margin
        readonly property real scale: Math.max(layoutScale, Math.min(layoutScale * 1.3, room / geo.height,
                                                                     (screen.width - 2 * lay.margin) / geo.width))
        width: geo.width * scale
        height: geo.height * scale

        OutletImage {
            objectName: "ukuleleFretboard"
            anchors.fill: parent
            outlet: o.ukuleleFretboard
            fillMode: Image.Stretch
        }
        Repeater {
            model: 4
            delegate: OutletImage {
                readonly property int string: index + 1
                objectName: "string" + string + "Status"
                outlet: o["string" + string + "Status"]
                width: geo.markSize * boardBox.scale; height: width
                x: geo.stringX[String(string)] * boardBox.scale - width / 2
                y: geo.statusY * boardBox.scale - height / 2
            }
        }
        Repeater {
            model: 16
            delegate: OutletImage {
                readonly property int string: Math.floor(index / 4) + 1
                readonly property int row: index % 4 + 1
                objectName: "Str" + string + "Fr" + row
                outlet: o["Str" + string + "Fr" + row]
                width: geo.markSize * boardBox.scale; height: width
                x: geo.stringX[String(string)] * boardBox.scale - width / 2
                y: geo.rowCenterY[String(row)] * boardBox.scale - height / 2
            }
        }
        Repeater {
            model: [
                { name: "rightNumberFr1", x: geo.rightNumberX, row: 1 },
                { name: "rightNumberFr2", x: geo.rightNumberX, row: 2 },
                { name: "leftNumberFr2", x: geo.leftNumberX, row: 2 }
            ]
            delegate: OutletImage {
                objectName: modelData.name
                outlet: o[modelData.name]
                width: geo.numberSize * boardBox.scale; height: width
                x: modelData.x * boardBox.scale - width / 2
                y: geo.rowCenterY[String(modelData.row)] * boardBox.scale - height / 2
            }
        }
    }

    // The two pickers on one panel, with a band marking the selected row.
    Rectangle {
        id: pickers
        anchors.horizontalCenter: parent.horizontalCenter
        y: boardBox.y + boardBox.height + gap
        width: Math.min(parent.width - 2 * lay.margin, Math.max(boardBox.width * 1.35, 300 * u))
        height: lay.pickerHeight
        radius: 14 * u
        color: Theme.panel
        border.color: Theme.panelBorder

        Rectangle {
            anchors.verticalCenter: parent.verticalCenter
            x: lay.margin / 2
            width: parent.width - lay.margin
            height: parent.height / 5
            radius: height / 3
            color: Theme.panelBorder
            opacity: 0.7
        }
        Rectangle {
            anchors.horizontalCenter: parent.horizontalCenter
            anchors.verticalCenter: parent.verticalCenter
            width: 1; height: parent.height * 0.7
            color: Theme.panelBorder
        }
        Row {
            anchors.fill: parent
            anchors.leftMargin: lay.margin / 2
            anchors.rightMargin: lay.margin / 2
            PickerWheel {
                id: rootWheel
                objectName: "selectRootChord"
                outlet: o.selectRootChord
                width: parent.width / 2; height: parent.height
                Accessible.name: qsTr("Root")
            }
            PickerWheel {
                id: variantWheel
                objectName: "selectVariant"
                outlet: o.selectVariant
                width: parent.width / 2; height: parent.height
                Accessible.name: qsTr("Chord type")
            }
        }
        // The wheel the arrow keys turn, marked once the keyboard is used.
        Rectangle {
            objectName: "keyWheelMark"
            visible: screen.keyboardUsed
            x: pickers.width / 2 * screen.keyWheel + 4 * u
            y: 4 * u
            width: pickers.width / 2 - 8 * u; height: pickers.height - 8 * u
            radius: 10 * u
            color: "transparent"
            border.color: Theme.accent
            border.width: 2 * u
        }
    }

    // Left and right pick a wheel, up and down turn it.
    property int keyWheel: 0
    property bool keyboardUsed: false
    readonly property bool inFront: !App.alert.visible
    Shortcut {
        sequence: "Left"
        enabled: screen.inFront
        onActivated: {
            screen.keyWheel = 0
            screen.keyboardUsed = true
        }
    }
    Shortcut {
        sequence: "Right"
        enabled: screen.inFront
        onActivated: {
            screen.keyWheel = 1
            screen.keyboardUsed = true
        }
    }
    Shortcut {
        sequence: "Up"
        enabled: screen.inFront
        onActivated: {
            (screen.keyWheel === 0 ? rootWheel : variantWheel).step(-1)
            screen.keyboardUsed = true
        }
    }
    Shortcut {
        sequence: "Down"
        enabled: screen.inFront
        onActivated: {
            (screen.keyWheel === 0 ? rootWheel : variantWheel).step(1)
            screen.keyboardUsed = true
        }
    }
}
