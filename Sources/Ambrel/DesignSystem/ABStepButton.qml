import QtQuick
import QtQuick.Templates as T
import Ambrel.DesignSystem

/// One half of a stepper: more or less.
T.AbstractButton {
    id: root

    property int sign: 1

    implicitWidth: ABMetric.target
    implicitHeight: ABMetric.target
    focusPolicy: Qt.NoFocus
    autoRepeat: true
    opacity: enabled ? 1 : 0.4
    Accessible.role: Accessible.Button
    Accessible.name: sign > 0 ? qsTr("More") : qsTr("Less")

    background: ABHoverFill { control: root }

    contentItem: Item {
        Rectangle {
            anchors.centerIn: parent
            width: 10
            height: 2
            radius: 1
            color: ABColor.textPrimary
        }

        Rectangle {
            anchors.centerIn: parent
            visible: root.sign > 0
            width: 2
            height: 10
            radius: 1
            color: ABColor.textPrimary
        }
    }
}
