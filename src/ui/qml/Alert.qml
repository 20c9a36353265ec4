import QtQuick
import "Theme.js" as Theme

// The app's own alert (the rating prompt's), over whatever screen is showing.
Item {
    anchors.fill: parent
    visible: app.alert.visible
}
