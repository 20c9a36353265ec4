import QtQuick

// An image view bound to an outlet: shows the outlet's picture unless it is hidden.
Image {
    property var outlet
    source: outlet && outlet.source ? outlet.source : ""
    visible: !!outlet && !outlet.hidden && source != ""
    sourceSize: Qt.size(Math.max(1, Math.round(width)), Math.max(1, Math.round(height)))
    fillMode: Image.PreserveAspectFit
    smooth: true
    cache: false
}
