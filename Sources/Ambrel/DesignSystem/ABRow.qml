import QtQuick
import QtQuick.Templates as T
import Ambrel.DesignSystem

/// A row that is pressed as a whole, with any content, filled while the pointer is on it or while it is selected.
T.AbstractButton {
    id: root

    property bool selected: false
    property color selectionColor: ABColor.accentMuted
    /// How far the fill keeps from both ends.
    property alias fillInset: hover.anchors.leftMargin
    property alias fillRadius: hover.radius

    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: Math.max(implicitContentHeight + topPadding + bottomPadding, ABMetric.target)
    horizontalPadding: 16
    opacity: enabled ? 1 : 0.4
    Accessible.role: Accessible.Button
    Accessible.name: text
    Keys.onReturnPressed: clicked()
    Keys.onEnterPressed: clicked()

    ABSurface {
        anchors.fill: hover
        z: -1
        visible: root.selected
        radius: hover.radius
        color: root.selectionColor
    }

    ABHoverFill {
        id: hover

        anchors.fill: parent
        anchors.rightMargin: anchors.leftMargin
        z: -1
        control: root
    }

    Rectangle {
        anchors.fill: hover
        visible: root.visualFocus
        color: "transparent"
        radius: root.fillRadius
        border.width: ABMetric.focusRing
        border.color: ABColor.withAlpha(ABColor.accent, 0.6)
    }
}
