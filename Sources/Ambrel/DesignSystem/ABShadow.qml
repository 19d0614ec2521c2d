import QtQuick
import Ambrel.DesignSystem

/// The soft shadow of a rounded shape as large as this; it lies around it too, as far as `blur`.
Item {
    id: root

    property alias color: picture.color
    property alias blur: picture.blur
    property alias cornerRadius: picture.cornerRadius

    ABShadowPicture {
        id: picture

        anchors.fill: parent
        anchors.margins: -blur
    }
}
