import QtQuick
import Ambrel.DesignSystem

/// A hairline: one pixel of the device, two where contrast is increased. As wide as it is told to be, or, upright, as high.
Item {
    id: root

    property bool upright: false
    property color color: ABColor.divider
    readonly property real thickness: (ABAppearance.highContrast ? 2 : 1) / Screen.devicePixelRatio

    implicitWidth: thickness
    implicitHeight: thickness

    Rectangle {
        anchors.left: parent.left
        anchors.top: parent.top
        width: root.upright ? root.thickness : root.width
        height: root.upright ? root.height : root.thickness
        color: root.color
    }
}
