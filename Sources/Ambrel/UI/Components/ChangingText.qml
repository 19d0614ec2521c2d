import QtQuick
import Ambrel.DesignSystem

/// Words that go and come when they change.
ABText {
    id: root

    Behavior on text {
        enabled: !ABRenderConfig.drawsPictures && !ABAppearance.reducedMotion && root.text.length > 0

        SequentialAnimation {
            ABFade {
                target: root
                property: "opacity"
                to: 0
                motion: ABMotion.hover
            }
            PropertyAction {}
            ABFade {
                target: root
                property: "opacity"
                to: 1
                motion: ABMotion.hover
            }
        }
    }
}
