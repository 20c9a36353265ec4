import QtQuick

Sheet {
    title: ""
}
