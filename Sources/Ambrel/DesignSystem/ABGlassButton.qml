import QtQuick
import QtQuick.Templates as T
import Ambrel.DesignSystem

/// The button of every view; `prominent` is the main action, `destructive` one that takes something away. `leading` sets its label to the near side.
T.Button {
    id: root

    property bool prominent: false
    property bool destructive: false
    property bool large: false
    property bool leading: false
    property string symbol: ""

    readonly property color ink: prominent ? ABColor.accentText : destructive ? ABColor.error : ABColor.textPrimary
    readonly property color fill: {
        if (prominent)
            return down ? Qt.darker(ABColor.accentFill, 1.12) : hovered ? Qt.lighter(ABColor.accentFill, 1.06) : ABColor.accentFill;
        if (ABRenderConfig.captureMode)
            return ABColor.surfaceHover;
        const tint = ABColor.withAlpha(ABColor.surfaceHover, ABColor.surfaceHover.a / (down ? 1 : 2));
        return down || hovered ? ABColor.over(ABColor.control, tint) : ABColor.control;
    }

    implicitWidth: Math.max(implicitContentWidth + leftPadding + rightPadding, ABMetric.target)
    implicitHeight: Math.max(implicitContentHeight + topPadding + bottomPadding, large ? ABMetric.largeControl : ABMetric.target)
    horizontalPadding: ABRenderConfig.captureMode ? 16 : 14
    verticalPadding: ABRenderConfig.captureMode ? 8 : 4
    opacity: enabled ? 1 : 0.4
    Accessible.name: text
    Keys.onReturnPressed: root.clicked()
    Keys.onEnterPressed: root.clicked()

    contentItem: ABLabel {
        text: root.text
        symbol: root.symbol
        color: root.ink
        centered: !root.leading
    }

    background: ABSurface {
        radius: ABMetric.controlRadius
        color: root.fill
        edge: root.prominent ? ABColor.materialEdge : ABColor.controlEdge
        edgePixels: ABRenderConfig.captureMode ? 0 : ABAppearance.highContrast ? 2 : 1

        Behavior on color {
            enabled: !ABRenderConfig.drawsPictures
            ABColorFade {}
        }
    }

    ABFocusRing { control: root }
}
