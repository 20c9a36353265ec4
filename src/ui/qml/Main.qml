import QtQuick
import UkuleleTuner
import QtQuick.Window
import "Theme.js" as Theme

Window {
    id: window
    width: App.layout.width
    height: App.layout.height
    minimumWidth: width; maximumWidth: width
    minimumHeight: height; maximumHeight: height
    visible: true
    title: qsTr("Ukulele Tuner")
    color: Theme.background

    TunerScreen {
        id: tunerScreen
        anchors.fill: parent
        // Covered whole by the chord screen: a read-out that changes beneath it
        // would still cost a frame.
        visible: !App.chordsOpen
        onOpenSettings: settingsSheet.open = true
        onOpenAbout: aboutSheet.open = true
        onOpenTuningFork: {
            tuningForkSheet.open = true
            App.tuner.disableTemporarilySoundConfirmation()
        }
        onOpenChords: App.openChords()
    }
    SettingsSheet { id: settingsSheet; objectName: "settingsSheet" }
    AboutSheet { id: aboutSheet; objectName: "aboutSheet" }
    TuningForkSheet {
        id: tuningForkSheet
        objectName: "tuningForkSheet"
        onClosed: App.tuner.enableSoundConfirmation()
    }
    Loader {
        anchors.fill: parent
        active: App.chordsOpen
        sourceComponent: ChordsScreen {}
    }
    Alert { anchors.fill: parent }
}
