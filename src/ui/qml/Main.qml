import QtQuick
import QtQuick.Window
import "Theme.js" as Theme

Window {
    id: window
    width: app.layout.width
    height: app.layout.height
    minimumWidth: width; maximumWidth: width
    minimumHeight: height; maximumHeight: height
    visible: true
    title: qsTr("Ukulele Tuner")
    color: Theme.background

    TunerScreen {
        id: tunerScreen
        anchors.fill: parent
        onOpenSettings: settingsSheet.open = true
        onOpenAbout: aboutSheet.open = true
        onOpenTuningFork: {
            tuningForkSheet.open = true
            app.tunerAction("disableTemporarilySoundConfirmation")
        }
        onOpenChords: app.openChords()
    }
    SettingsSheet { id: settingsSheet; objectName: "settingsSheet" }
    AboutSheet { id: aboutSheet; objectName: "aboutSheet" }
    TuningForkSheet {
        id: tuningForkSheet
        objectName: "tuningForkSheet"
        onClosed: app.tunerAction("enableSoundConfirmation")
    }
    Loader {
        anchors.fill: parent
        active: app.chordsOpen
        sourceComponent: ChordsScreen {}
    }
    Alert { anchors.fill: parent }
}
