import QtQuick
import Ambrel.DesignSystem

/// An application's icon, or a sign for none in its place.
Item {
    id: root

    property string source: ""
    property int size: 22

    implicitWidth: size
    implicitHeight: size
    Accessible.ignored: true

    Image {
        anchors.fill: parent
        visible: root.source.length > 0
        source: root.source
        sourceSize.width: root.size
        sourceSize.height: root.size
    }
    ABSymbol {
        anchors.fill: parent
        visible: root.source.length === 0
        size: Math.round(root.size * 0.75)
        name: "slider.horizontal.3"
        color: ABColor.textSecondary
    }
}
