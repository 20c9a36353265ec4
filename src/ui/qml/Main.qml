// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import UkuleleTuner
import QtQuick.Window
import "Theme.js" as Theme

Window {
    id: window
    // The device class decides the layout; the window opens at its size and may take
    // any other, the layout scaled to fit and centred.
    width: App.layout.width
    height: App.layout.height
    minimumWidth: Math.round(App.layout.width / 2)
    minimumHeight: Math.round(App.layout.height / 2)
    visible: true
    title: qsTr("Ukulele Tuner")
    color: Theme.background

    readonly property bool panelOpen: App.panel !== ""

    // Pictures are redrawn only in quarter steps of scale, not at every pixel of a
    // drag. The screen's own pixel ratio Qt applies to every picture itself.
    Binding {
        target: App
        property: "pixelScale"
        value: Math.ceil(stage.scale * 4) / 4
    }

    // Beside or above a scaled layout, the screens' own background carries on.
    Rectangle {
        anchors.fill: parent
        gradient: Gradient {
            GradientStop { position: 0.0; color: Theme.backgroundTop }
            GradientStop { position: 0.55; color: Theme.background }
        }
    }

    Item {
        id: stage
        objectName: "stage"
        width: App.layout.width
        height: App.layout.height
        transformOrigin: Item.TopLeft
        scale: Math.min(window.width / width, window.height / height)
        x: Math.round((window.width - width * scale) / 2)
        y: Math.round((window.height - height * scale) / 2)

        TunerScreen {
            id: tunerScreen
            anchors.fill: parent
            // Covered whole by the chord screen: a read-out that changes beneath it
            // would still cost a frame.
            visible: !App.chordsOpen
        }
        SettingsSheet { id: settingsSheet; objectName: "settingsSheet"; panel: "settings" }
        AboutSheet { id: aboutSheet; objectName: "aboutSheet"; panel: "about" }
        TuningForkSheet { id: tuningForkSheet; objectName: "tuningForkSheet"; panel: "tuningFork" }
        Loader {
            anchors.fill: parent
            active: App.chordsOpen
            sourceComponent: ChordsScreen {}
        }
        Alert { id: alert; anchors.fill: parent }
    }

    // Keys do what the screen in front offers, and nothing hidden behind it.
    readonly property bool tunerInFront: !App.chordsOpen && !panelOpen && !App.alert.visible
    Shortcut {
        sequences: [StandardKey.Quit, "Ctrl+Q"]
        context: Qt.ApplicationShortcut
        onActivated: Qt.quit()
    }
    Shortcut {
        sequence: "Left"
        enabled: window.tunerInFront && !App.tunerOutlets.showPreviousTuningButton.hidden
        onActivated: App.tuner.act("showPreviousTuning")
    }
    Shortcut {
        sequence: "Right"
        enabled: window.tunerInFront && !App.tunerOutlets.showNextTuningButton.hidden
        onActivated: App.tuner.act("showNextTuning")
    }
    // 1 to 4: the strings' tones in the tuning fork, their recordings on the tuner.
    component StringKey: Shortcut {
        required property int string
        sequence: String(string)
        enabled: !App.chordsOpen && !App.alert.visible && !settingsSheet.open && !aboutSheet.open
        onActivated: tuningForkSheet.open ? tuningForkSheet.playString(string) : tunerScreen.playString(string)
    }
    StringKey { string: 1 }
    StringKey { string: 2 }
    StringKey { string: 3 }
    StringKey { string: 4 }
    Shortcut {
        sequence: "Escape"
        enabled: !App.alert.visible && (window.panelOpen || App.chordsOpen)
        onActivated: window.panelOpen ? App.tuner.act("closePanel") : App.chords.act("closeChords")
    }
}
