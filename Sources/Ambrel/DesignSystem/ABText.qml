import QtQuick
import Ambrel.DesignSystem

/// Text in one of the styles of ABFont.
Text {
    id: root

    property abTextStyle style: ABFont.body
    readonly property real textScale: ABDynamicType.scale
    readonly property int leading: ABFont.leadingAbove(style, textScale)

    font: ABFont.font(style, textScale)
    lineHeightMode: Text.FixedHeight
    lineHeight: ABFont.lineHeight(style, textScale)
    topPadding: leading
    bottomPadding: -leading
    color: ABColor.textPrimary
    textFormat: Text.PlainText
    renderType: Text.NativeRendering
    wrapMode: Text.Wrap
    horizontalAlignment: Text.AlignLeft
    Accessible.role: Accessible.StaticText
    Accessible.name: text
    Accessible.ignored: !visible || text.length === 0
}
