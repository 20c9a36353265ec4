import QtQuick
import "Theme.js" as Theme

// The chord library.
Rectangle {
    color: Theme.background
    IconButton {
        objectName: "chordsBack"
        x: 8; y: app.layout.topInset || 20
        text: "‹"
        fontSize: 28
        onClicked: app.closeChords()
    }
}
