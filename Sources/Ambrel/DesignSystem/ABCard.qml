import QtQuick
import QtQuick.Templates as T
import Ambrel.DesignSystem

/// Its content, one item, with `padding` around it on a card. As large as the content wants; the content gets the room.
T.Control {
    id: root

    default property alias content: root.contentItem
    property real radius: ABMetric.cardRadius

    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    padding: 20
    focusPolicy: Qt.NoFocus

    background: ABCardSurface { radius: root.radius }
}
