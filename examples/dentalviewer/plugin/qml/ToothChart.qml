// The tooth chart page: the chart scene (drawn with overlay items by the plug-in) and buttons that
// step through the teeth with the library's tooth name generator. The arrow keys step as well.
import QtQuick
import com.korvani.qmlcomponents 1.0

Rectangle {
    id: root
    color: chart.panelColor
    focus: true
    Keys.onLeftPressed: chart.choosePrevious()
    Keys.onRightPressed: chart.chooseNext()

    component ChartButton: Rectangle {
        id: button
        property alias text: label.text
        signal clicked
        width: label.implicitWidth + 24
        height: label.implicitHeight + 12
        radius: 4
        color: area.containsMouse ? chart.hoverColor : chart.buttonColor
        Text {
            id: label
            anchors.centerIn: parent
            color: chart.textColor
            font.family: chart.fontFamily
            font.pixelSize: 13
        }
        MouseArea {
            id: area
            anchors.fill: parent
            hoverEnabled: true
            onClicked: {
                root.forceActiveFocus()
                button.clicked()
            }
        }
    }

    QuickGraphicsSceneItem {
        objectName: "chartScene"
        anchors {
            left: parent.left
            right: parent.right
            top: parent.top
            bottom: bar.top
            margins: 8
        }
    }

    // The text between the buttons has the width of its longest form, so that the buttons stay
    // where they are whatever tooth is selected.
    TextMetrics {
        id: widest
        font: selection.font
        text: qsTr("Selected tooth: %1").arg("88")
    }

    Row {
        id: bar
        anchors {
            horizontalCenter: parent.horizontalCenter
            bottom: parent.bottom
            bottomMargin: 10
        }
        spacing: 24

        ChartButton {
            objectName: "previousTooth"
            text: qsTr("Previous tooth")
            onClicked: chart.choosePrevious()
        }
        Text {
            id: selection
            objectName: "selectedTooth"
            anchors.verticalCenter: parent.verticalCenter
            width: Math.max(widest.advanceWidth, hint.advanceWidth) + 8
            horizontalAlignment: Text.AlignHCenter
            color: chart.textColor
            font.family: chart.fontFamily
            font.pixelSize: 15
            text: chart.selectedTooth === "" ? qsTr("Click a tooth")
                                             : qsTr("Selected tooth: %1").arg(chart.selectedTooth)
            TextMetrics {
                id: hint
                font: selection.font
                text: qsTr("Click a tooth")
            }
        }
        ChartButton {
            objectName: "nextTooth"
            text: qsTr("Next tooth")
            onClicked: chart.chooseNext()
        }
    }
}
