import QtQuick

Rectangle {
    width: 120
    height: 40
    color: "black"

    Image {
        objectName: "full"
        source: "image://qrc/testimages/quadrants.png"
    }
    Image {
        objectName: "scaled"
        x: 60
        source: "image://qrc/testimages/quadrants.png"
        sourceSize: Qt.size(20, 20)
    }
    Image {
        objectName: "missing"
        y: 30
        source: "image://qrc/testimages/missing.png"
    }
}
