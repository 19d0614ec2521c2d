import QtQuick
import QtQuick.Templates as T
import Ambrel.DesignSystem

/// One command of an ABMenu.
T.MenuItem {
    id: root

    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: Math.max(implicitContentHeight + topPadding + bottomPadding, ABMetric.target)
    horizontalPadding: 10
    verticalPadding: 4
    opacity: enabled ? 1 : 0.4
    Accessible.role: Accessible.MenuItem
    Accessible.name: text
    Keys.onReturnPressed: clicked()
    Keys.onEnterPressed: clicked()

    contentItem: ABText {
        text: root.text
        verticalAlignment: Text.AlignVCenter
        wrapMode: Text.NoWrap
        Accessible.ignored: true
    }

    background: ABSurface {
        visible: root.highlighted || root.down
        radius: ABMetric.hoverRadius
        color: ABColor.surfaceHover
    }
}
