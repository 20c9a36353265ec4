import QtQuick
import "Theme.js" as Theme

// A panel that slides up over the tuner screen; closing it leaves the tuner as it was.
Item {
    id: sheet
    property string title: ""
    property bool open: false
    property real unit: app.layout.unit || 1
    default property alias content: body.data
    signal closed()
    anchors.fill: parent
    visible: open || slide.running

    function close() { open = false; closed() }

    Rectangle {
        anchors.fill: parent
        color: "#000000"
        opacity: sheet.open ? 0.55 : 0
        Behavior on opacity { NumberAnimation { duration: 180 } }
        MouseArea { anchors.fill: parent; onClicked: sheet.close() }
    }
    Rectangle {
        id: card
        width: Math.min(parent.width, app.layout.sheetWidth || parent.width)
        height: Math.min(parent.height - (app.layout.topInset || 20), body.childrenRect.height + header.height + 40 * sheet.unit)
        anchors.horizontalCenter: parent.horizontalCenter
        y: sheet.open ? parent.height - height : parent.height
        Behavior on y { NumberAnimation { id: slide; duration: 220; easing.type: Easing.OutCubic } }
        radius: 18 * sheet.unit
        color: Theme.panel
        border.color: Theme.panelBorder
        MouseArea { anchors.fill: parent }  // keeps taps on the card from closing it

        Item {
            id: header
            width: parent.width; height: 52 * sheet.unit
            Text {
                anchors.centerIn: parent
                text: sheet.title
                color: Theme.text
                font.pixelSize: 18 * sheet.unit
                font.bold: true
            }
            Text {
                objectName: "sheetDone"
                anchors.right: parent.right; anchors.rightMargin: 16 * sheet.unit
                anchors.verticalCenter: parent.verticalCenter
                text: qsTr("Done")
                color: Theme.accent
                font.pixelSize: 16 * sheet.unit
                MouseArea { anchors.fill: parent; anchors.margins: -10; onClicked: sheet.close() }
            }
        }
        Item {
            id: body
            anchors.top: header.bottom
            anchors.left: parent.left; anchors.right: parent.right
            anchors.margins: 16 * sheet.unit
            height: childrenRect.height
        }
    }
}
