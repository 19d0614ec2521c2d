import QtQuick
import QtQuick.Templates as T
import Ambrel.DesignSystem

/// A box that shows `isOn` and nothing else, with its words beside it; `edited` asks for the other state.
T.AbstractButton {
    id: root

    property bool isOn: false
    signal edited(bool value)

    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: Math.max(implicitContentHeight, ABMetric.target)
    leftPadding: mirrored ? 0 : box + 8
    rightPadding: mirrored ? box + 8 : 0
    opacity: enabled ? 1 : 0.4
    Accessible.role: Accessible.CheckBox
    Accessible.name: text
    Accessible.checkable: true
    Accessible.checked: isOn
    Accessible.onToggleAction: clicked()
    Keys.onReturnPressed: clicked()
    Keys.onEnterPressed: clicked()
    onClicked: edited(!isOn)

    readonly property int box: 16

    contentItem: ABText {
        text: root.text
        verticalAlignment: Text.AlignVCenter
        Accessible.ignored: true
    }

    background: Item {
        ABSurface {
            anchors.left: parent.left
            anchors.verticalCenter: parent.verticalCenter
            width: root.box
            height: root.box
            radius: 4
            color: root.isOn ? ABColor.accentFill : ABColor.control
            edge: ABColor.controlEdge
            edgePixels: root.isOn ? 0 : ABAppearance.highContrast ? 2 : 1

            ABCheckMark {
                anchors.fill: parent
                visible: root.isOn
            }
        }
    }

    ABFocusRing { control: root }
}
