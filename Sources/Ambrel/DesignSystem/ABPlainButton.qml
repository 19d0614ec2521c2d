import QtQuick
import QtQuick.Templates as T
import Ambrel.DesignSystem

/// A button without a body: a symbol, a word, or both, and a fill under the pointer.
T.Button {
    id: root

    property string symbol: ""
    property bool leading: false
    property bool symbolMirrored: false
    property abTextStyle style: ABFont.body
    property color color: ABColor.textPrimary

    implicitWidth: Math.max(implicitContentWidth + leftPadding + rightPadding, ABMetric.target)
    implicitHeight: Math.max(implicitContentHeight + topPadding + bottomPadding, ABMetric.target)
    horizontalPadding: text.length > 0 ? 8 : 6
    verticalPadding: 4
    opacity: enabled ? 1 : 0.4
    Accessible.name: text
    Keys.onReturnPressed: clicked()
    Keys.onEnterPressed: clicked()

    contentItem: ABLabel {
        text: root.text
        symbol: root.symbol
        style: root.style
        color: root.color
        mirrored: root.symbolMirrored
        centered: !root.leading
    }

    background: ABHoverFill { control: root }

    ABFocusRing { control: root }
}
