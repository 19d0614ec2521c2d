import QtQuick
import Ambrel.DesignSystem

/// Stands in for the icon of something that has none: the first letter of its name.
ABSurface {
    id: root

    property string name: ""

    implicitWidth: 24
    implicitHeight: 24
    radius: 6
    color: ABColor.accentMuted
    ABDynamicType.maximum: 1
    Accessible.ignored: true

    ABText {
        anchors.centerIn: parent
        text: Array.from(root.name)[0]?.toUpperCase() ?? ""
        style: ABFont.title
        color: ABColor.accent
        Accessible.ignored: true
    }
}
