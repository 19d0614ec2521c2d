import QtQuick
import Ambrel.DesignSystem

/// The round thing on a switch or a slider, and the shade under it.
Item {
    id: root

    property int size: 18

    width: size
    height: size

    ABShadow {
        anchors.fill: parent
        anchors.topMargin: 1
        anchors.bottomMargin: -1
        visible: !ABRenderConfig.drawsPictures
        cornerRadius: root.size / 2
        blur: 3
        color: ABColor.shadow
    }

    ABSurface {
        anchors.fill: parent
        radius: root.size / 2
        color: ABColor.knob
        edge: ABColor.divider
        edgePixels: 1
    }
}
