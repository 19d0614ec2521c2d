import QtQuick
import QtQuick.Templates as T
import Ambrel.DesignSystem

/// A line of help under the pointer, a while after it has come to rest on `parent`.
T.ToolTip {
    id: root

    implicitWidth: Math.min(implicitContentWidth + leftPadding + rightPadding, 280)
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    y: (parent?.height ?? 0) + 4
    horizontalPadding: 8
    verticalPadding: 4
    delay: 800
    closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutsideParent

    contentItem: ABText {
        text: root.text
        style: ABFont.caption
        Accessible.ignored: true
    }

    background: ABSurface {
        radius: ABMetric.controlRadius
        color: ABColor.over(ABColor.windowBg, ABColor.material)
        edge: ABColor.controlEdge
        edgePixels: ABAppearance.highContrast ? 2 : 1
    }
}
