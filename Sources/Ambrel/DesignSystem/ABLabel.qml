import QtQuick
import Ambrel.DesignSystem

/// A symbol and a word beside it, either of which may be missing; at the near side of the room there is, or in its middle.
Item {
    id: root

    property alias text: words.text
    property alias symbol: sign.name
    property alias style: words.style
    property alias symbolSize: sign.size
    property alias mirrored: sign.mirrored
    property bool centered: false
    property color color: ABColor.textPrimary
    property color symbolColor: color
    property real spacing: 8
    readonly property real symbolRoom: symbol.length === 0 ? 0 : sign.implicitWidth + (text.length > 0 ? spacing : 0)

    implicitWidth: symbolRoom + words.implicitWidth
    implicitHeight: Math.max(words.implicitHeight, symbolRoom > 0 ? sign.implicitHeight : 0)

    Item {
        anchors.left: root.centered ? undefined : parent.left
        anchors.horizontalCenter: root.centered ? parent.horizontalCenter : undefined
        width: Math.min(root.width, root.implicitWidth)
        height: parent.height

        ABSymbol {
            id: sign

            anchors.left: parent.left
            anchors.verticalCenter: parent.verticalCenter
            visible: root.symbolRoom > 0
            size: Math.round(16 * words.textScale)
            color: root.symbolColor
        }

        ABText {
            id: words

            anchors.left: parent.left
            anchors.leftMargin: root.symbolRoom
            anchors.right: parent.right
            anchors.verticalCenter: parent.verticalCenter
            style: ABFont.bodyMedium
            color: root.color
            Accessible.ignored: true
        }
    }
}
