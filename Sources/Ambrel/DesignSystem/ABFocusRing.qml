import QtQuick
import QtQuick.Templates as T
import Ambrel.DesignSystem

/// Shows that the keyboard is at `control`, and only the keyboard.
Rectangle {
    required property T.Control control

    anchors.fill: control
    anchors.margins: -(ABMetric.focusRing + ABMetric.focusGap)
    visible: control.visualFocus
    color: "transparent"
    radius: ABMetric.controlRadius + ABMetric.focusRing + ABMetric.focusGap
    border.width: ABMetric.focusRing
    border.color: ABColor.withAlpha(ABColor.accent, 0.6)
}
