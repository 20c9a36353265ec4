// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import UkuleleTuner
import QtQuick.Controls.Basic
import "Theme.js" as Theme

// The settings panel: sensitivity, calibration, the three switches and the
// note-naming picker. Every control shows the tuner's outlet and sends its
// action; the controller decides what the value becomes.
Sheet {
    id: sheet
    title: qsTr("Settings")

    property var o: App.tunerOutlets
    property var lay: App.layout
    property real u: lay.unit || 1
    property real fontSize: lay.labelFont || 16
    property real smallSize: lay.smallFont || 12
    property real rowHeight: Math.max(44 * u, fontSize * 2.75)

    // A rounded group of rows, as settings lists are drawn on a phone.
    component Group: Rectangle {
        default property alias rows: column.data
        width: parent ? parent.width : 0
        height: column.height
        radius: 12 * sheet.u
        color: Theme.backgroundTop
        border.color: Theme.panelBorder
        Column { id: column; width: parent.width }
    }

    component Separator: Rectangle {
        x: 14 * sheet.u
        width: parent ? parent.width - x : 0
        height: 1
        color: Theme.panelBorder
    }

    // A caption with an on/off switch at the right end of the row.
    component SwitchRow: Item {
        id: row
        property var caption
        property string captionName
        property var outlet
        property alias control: toggle
        signal switched(bool on)
        width: parent ? parent.width : 0
        height: sheet.rowHeight
        visible: !outlet.hidden
        Text {
            objectName: row.captionName
            anchors.left: parent.left; anchors.leftMargin: 14 * sheet.u
            anchors.right: toggle.left; anchors.rightMargin: 8 * sheet.u
            anchors.verticalCenter: parent.verticalCenter
            text: row.caption.text
            visible: !row.caption.hidden
            color: Theme.text
            font.pixelSize: sheet.fontSize
            elide: Text.ElideRight
        }
        Switch {
            id: toggle
            objectName: row.objectName + "Control"
            Accessible.name: row.caption.text
            anchors.right: parent.right; anchors.rightMargin: 10 * sheet.u
            anchors.verticalCenter: parent.verticalCenter
            checked: row.outlet.on
            padding: 0
            onToggled: row.switched(checked)
            indicator: Rectangle {
                implicitWidth: 51 * sheet.u
                implicitHeight: 31 * sheet.u
                radius: height / 2
                color: toggle.checked ? Theme.good : Theme.panelBorder
                Behavior on color { ColorAnimation { duration: 120 } }
                Rectangle {
                    width: parent.height - 4 * sheet.u; height: width; radius: width / 2
                    y: 2 * sheet.u
                    x: toggle.checked ? parent.width - width - 2 * sheet.u : 2 * sheet.u
                    Behavior on x { NumberAnimation { duration: 120 } }
                    color: toggle.down ? "#e8e2da" : "#ffffff"
                }
            }
            background: null
        }
    }

    Column {
        width: parent.width
        spacing: 16 * sheet.u

        // Microphone sensitivity: the slider's raw position goes to the controller
        // on release; the controller snaps it to a whole step.
        Group {
            Item {
                width: parent.width
                height: sheet.rowHeight * 0.8
                Text {
                    objectName: "micSensitivityLabel"
                    anchors.left: parent.left; anchors.leftMargin: 14 * sheet.u
                    anchors.right: step.left; anchors.rightMargin: 8 * sheet.u
                    anchors.bottom: parent.bottom
                    text: o.micSensitivityLabel.text
                    visible: !o.micSensitivityLabel.hidden
                    color: Theme.text
                    font.pixelSize: sheet.fontSize
                    elide: Text.ElideRight
                }
                Text {
                    id: step
                    anchors.right: parent.right; anchors.rightMargin: 14 * sheet.u
                    anchors.bottom: parent.bottom
                    text: Math.round(slider.value)
                    color: Theme.accent
                    font.pixelSize: sheet.fontSize
                    font.bold: true
                }
            }
            Item {
                width: parent.width
                height: sheet.rowHeight
                visible: !o.micSensitivitySlider.hidden
                Text {
                    id: quiet
                    anchors.left: parent.left; anchors.leftMargin: 14 * sheet.u
                    anchors.verticalCenter: parent.verticalCenter
                    text: slider.from
                    color: Theme.muted
                    font.pixelSize: sheet.smallSize
                }
                Slider {
                    id: slider
                    objectName: "micSensitivitySlider"
                    Accessible.name: o.micSensitivityLabel.text
                    anchors.left: quiet.right; anchors.leftMargin: 8 * sheet.u
                    anchors.right: loud.left; anchors.rightMargin: 8 * sheet.u
                    anchors.verticalCenter: parent.verticalCenter
                    from: o.micSensitivitySlider.minimum
                    to: o.micSensitivitySlider.maximum
                    value: o.micSensitivitySlider.value
                    onPressedChanged: {
                        if (pressed)
                            return
                        App.tuner.act("micSensitivity", value)
                        // Show what the controller made of it, even when that equals the old value.
                        value = Qt.binding(function() { return o.micSensitivitySlider.value })
                    }
                    background: Item {
                        x: slider.leftPadding
                        y: slider.topPadding + slider.availableHeight / 2 - height / 2
                        width: slider.availableWidth
                        height: 4 * sheet.u
                        Rectangle {
                            anchors.fill: parent
                            radius: height / 2
                            color: Theme.panelBorder
                        }
                        Rectangle {
                            width: slider.visualPosition * parent.width
                            height: parent.height
                            radius: height / 2
                            color: Theme.accent
                        }
                        // One tick per whole step: where the handle will settle.
                        Repeater {
                            model: Math.max(0, Math.round(slider.to - slider.from) + 1)
                            Rectangle {
                                width: 2 * sheet.u; height: 8 * sheet.u
                                x: index / Math.max(1, slider.to - slider.from) * (parent.width - width)
                                anchors.verticalCenter: parent.verticalCenter
                                color: Theme.muted
                                opacity: 0.6
                            }
                        }
                    }
                    handle: Rectangle {
                        x: slider.leftPadding + slider.visualPosition * (slider.availableWidth - width)
                        y: slider.topPadding + slider.availableHeight / 2 - height / 2
                        implicitWidth: 28 * sheet.u
                        implicitHeight: 28 * sheet.u
                        radius: width / 2
                        color: slider.pressed ? "#e8e2da" : "#ffffff"
                        border.color: Theme.panelBorder
                    }
                }
                Text {
                    id: loud
                    anchors.right: parent.right; anchors.rightMargin: 14 * sheet.u
                    anchors.verticalCenter: parent.verticalCenter
                    text: slider.to
                    color: Theme.muted
                    font.pixelSize: sheet.smallSize
                }
            }
        }

        // Calibration: the caption over the read-out and a stepper of whole hertz,
        // laid out as the sensitivity group is, so that no translation runs under
        // the stepper's buttons.
        Group {
            Item {
                width: parent.width
                height: sheet.rowHeight * 0.8
                Text {
                    objectName: "calibrationLabel"
                    anchors.left: parent.left; anchors.leftMargin: 14 * sheet.u
                    anchors.right: parent.right; anchors.rightMargin: 14 * sheet.u
                    anchors.bottom: parent.bottom
                    text: o.calibrationLabel.text
                    visible: !o.calibrationLabel.hidden
                    color: Theme.text
                    font.pixelSize: sheet.fontSize
                    elide: Text.ElideRight
                }
            }
            Item {
                width: parent.width
                height: sheet.rowHeight
                Text {
                    id: readout
                    objectName: "calibrationFrequencyValue"
                    anchors.left: parent.left; anchors.leftMargin: 14 * sheet.u
                    anchors.verticalCenter: parent.verticalCenter
                    text: o.calibrationFrequencyValue.text
                    visible: !o.calibrationFrequencyValue.hidden
                    color: Theme.accent
                    font.pixelSize: sheet.fontSize * 1.35
                    font.bold: true
                }
                Text {
                    objectName: "hZLabel"
                    anchors.left: readout.right; anchors.leftMargin: 6 * sheet.u
                    anchors.baseline: readout.baseline
                    text: o.hZLabel.text
                    visible: !o.hZLabel.hidden
                    color: Theme.text
                    font.pixelSize: sheet.fontSize
                }
                Rectangle {
                    id: stepper
                    objectName: "setFrequencyValueStepper"
                    property var outlet: o.setFrequencyValueStepper
                    visible: !outlet.hidden
                    anchors.right: parent.right; anchors.rightMargin: 10 * sheet.u
                    anchors.verticalCenter: parent.verticalCenter
                    width: 96 * sheet.u; height: 32 * sheet.u
                    radius: 8 * sheet.u
                    color: Theme.panel
                    border.color: Theme.panelBorder

                    // The controller keeps the value within the stepper's range.
                    function step(direction) {
                        App.tuner.act("setFrequencyValue", outlet.value + direction * outlet.stepValue)
                    }

                    Repeater {
                        model: [{ sign: "−", direction: -1, name: "stepperMinus" },
                                { sign: "+", direction: 1, name: "stepperPlus" }]
                        Item {
                            objectName: modelData.name
                            Accessible.role: Accessible.Button
                            Accessible.name: modelData.direction < 0 ? qsTr("Calibration down") : qsTr("Calibration up")
                            Accessible.onPressAction: stepper.step(modelData.direction)
                            property bool atEnd: modelData.direction < 0
                                ? stepper.outlet.value - stepper.outlet.stepValue < stepper.outlet.minimum
                                : stepper.outlet.value + stepper.outlet.stepValue > stepper.outlet.maximum
                            x: index * stepper.width / 2
                            width: stepper.width / 2; height: stepper.height
                            Rectangle {
                                anchors.fill: parent
                                anchors.margins: 1
                                radius: stepper.radius
                                color: Theme.panelBorder
                                visible: press.pressed && !parent.atEnd
                            }
                            Text {
                                anchors.centerIn: parent
                                text: modelData.sign
                                color: parent.atEnd ? Theme.muted : Theme.accent
                                opacity: parent.atEnd ? 0.5 : 1
                                font.pixelSize: sheet.fontSize * 1.3
                                font.bold: true
                            }
                            MouseArea {
                                id: press
                                anchors.fill: parent
                                onPressed: stepper.step(modelData.direction)
                            }
                            // Holding a button keeps stepping, as a phone's stepper does.
                            Timer {
                                running: press.pressed
                                interval: 110; repeat: true
                                triggeredOnStart: false
                                property int ticks: 0
                                onRunningChanged: ticks = 0
                                onTriggered: if (++ticks > 3) stepper.step(modelData.direction)
                            }
                        }
                    }
                    Rectangle {
                        anchors.centerIn: parent
                        width: 1; height: parent.height * 0.6
                        color: Theme.panelBorder
                    }
                }
            }
        }

        Group {
            SwitchRow {
                objectName: "soundNotificationSwitch"
                captionName: "soundNotificationLabel"
                caption: o.soundNotificationLabel
                outlet: o.soundNotificationSwitch
                onSwitched: on => App.tuner.act("soundNotificationAction", on)
            }
            Separator {}
            SwitchRow {
                objectName: "stringSoundsSwitch"
                captionName: "stringSoundsLabel"
                caption: o.stringSoundsLabel
                outlet: o.stringSoundsSwitch
                onSwitched: on => App.tuner.act("toggleStringSounds", on)
            }
            Separator {}
            SwitchRow {
                objectName: "freqChartSwitch"
                captionName: "frequencyChartLabel"
                caption: o.frequencyChartLabel
                outlet: o.freqChartSwitch
                onSwitched: on => App.tuner.act("toggleFreqChart", on)
            }
        }

        // The note-naming picker: a wheel, as on a phone. A row counts as chosen
        // when the wheel comes to rest on it or when it is tapped.
        Group {
            visible: !o.establecerIdioma.hidden
            Text {
                objectName: "noteNamesCaption"
                x: 14 * sheet.u
                width: parent.width - 28 * sheet.u
                height: sheet.rowHeight * 0.8
                verticalAlignment: Text.AlignBottom
                elide: Text.ElideRight
                text: qsTr("Note names")
                color: Theme.text
                font.pixelSize: sheet.fontSize
            }
            Item {
                width: parent.width
                height: (lay.pickerHeight || 180) * wheel.scale
                Rectangle {
                    anchors.centerIn: parent
                    width: parent.width - 16 * sheet.u
                    height: wheel.height / wheel.visibleItemCount * wheel.scale
                    radius: 8 * sheet.u
                    color: Theme.panel
                    border.color: Theme.panelBorder
                }
                Tumbler {
                    id: wheel
                    objectName: "establecerIdioma"
                    Accessible.name: qsTr("Note names")
                    Accessible.role: Accessible.List
                    anchors.centerIn: parent
                    width: parent.width / scale
                    height: lay.pickerHeight || 180
                    scale: o.establecerIdioma.scale || 1
                    model: o.establecerIdioma.rows
                    currentIndex: o.establecerIdioma.value
                    visibleItemCount: 5
                    wrap: false

                    // The wheel follows the outlet's selected row; assigning currentIndex
                    // here would cut that binding for good.
                    function choose(row) {
                        if (row < 0 || row >= count)
                            return
                        App.tuner.act("didSelectRow", row)
                        if (currentIndex !== row)
                            positionViewAtIndex(row, Tumbler.Center)
                    }
                    onMovingChanged: if (!moving && currentIndex !== o.establecerIdioma.value) choose(currentIndex)

                    delegate: Text {
                        objectName: "languageRow" + index
                        text: modelData
                        Accessible.role: Accessible.ListItem
                        Accessible.name: modelData
                        Accessible.onPressAction: wheel.choose(index)
                        width: wheel.width - 24 * sheet.u
                        elide: Text.ElideRight
                        horizontalAlignment: Text.AlignHCenter
                        verticalAlignment: Text.AlignVCenter
                        color: Math.abs(Tumbler.displacement) < 0.5 ? Theme.text : Theme.muted
                        opacity: 1.0 - Math.min(0.8, Math.abs(Tumbler.displacement) / (wheel.visibleItemCount / 2))
                        // The layout shrinks the whole wheel on some phones; the rows keep
                        // the panel's type size so that they stay readable.
                        font.pixelSize: sheet.fontSize * (Math.abs(Tumbler.displacement) < 0.5 ? 1.05 : 0.95) / wheel.scale
                        TapHandler { onTapped: wheel.choose(index) }
                    }
                }
            }
        }
    }
}
