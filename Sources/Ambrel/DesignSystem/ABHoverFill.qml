import QtQuick
import QtQuick.Templates as T
import Ambrel.DesignSystem

/// What lies under a control while the pointer is on it, and a little more of it while it is pressed.
ABSurface {
    id: root

    required property T.AbstractButton control
    readonly property real amount: control.down ? 1.6 : control.hovered ? 1 : 0

    radius: ABMetric.hoverRadius
    color: ABColor.surfaceHover
    opacity: 0
    states: State {
        when: root.amount > 0

        PropertyChanges { root.opacity: 1; root.color: ABColor.withAlpha(ABColor.surfaceHover, ABColor.surfaceHover.a * root.amount) }
    }
    transitions: Transition {
        ABFade {
            property: "opacity"
            motion: ABMotion.hover
        }
    }
}
