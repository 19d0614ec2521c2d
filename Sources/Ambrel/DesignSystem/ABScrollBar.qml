import QtQuick
import QtQuick.Templates as T
import Ambrel.DesignSystem

/// Shows how far something is scrolled, where there is anything to scroll.
T.ScrollBar {
    id: root

    implicitWidth: 10
    visible: size < 1
    minimumSize: 0.08
    Accessible.ignored: true

    contentItem: Item {
        Rectangle {
            anchors.right: parent.right
            anchors.rightMargin: 3
            width: root.hovered || root.pressed ? 6 : 4
            height: parent.height
            radius: width / 2
            color: root.hovered || root.pressed ? ABColor.textSecondary : ABColor.textTertiary
        }
    }
}
