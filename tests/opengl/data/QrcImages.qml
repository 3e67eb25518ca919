import QtQuick

// The resource image as it is, scaled down to 20 x 10 at x = 60, and one that is not there.
Rectangle {
    width: 120; height: 40; color: "black"
    Image { objectName: "full"; source: "image://qrc/testimages/quadrants.png" }
    Image {
        objectName: "scaled"; x: 60; sourceSize: Qt.size(20, 20)
        source: "image://qrc/testimages/quadrants.png"
    }
    Image { objectName: "missing"; y: 30; source: "image://qrc/testimages/missing.png" }
}
