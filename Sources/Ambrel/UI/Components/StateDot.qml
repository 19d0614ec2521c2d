import QtQuick
import Ambrel.DesignSystem

/// The round sign of the state: in accent, with a glow, while auto-quit runs.
Item {
    id: root

    required property bool isPaused

    implicitWidth: 10
    implicitHeight: 10

    Repeater {
        // A soft shadow of radius 4 in a few rings: blurred pictures cost more than they show at this size.
        model: 4

        Rectangle {
            required property int index

            anchors.centerIn: parent
            width: 18 - 2 * index
            height: width
            radius: width / 2
            color: ABColor.withAlpha(ABColor.accent, 0.09)
            opacity: root.isPaused ? 0 : 1

            Behavior on opacity {
                enabled: !ABRenderConfig.drawsPictures
                ABFade {}
            }
        }
    }

    Rectangle {
        anchors.fill: parent
        radius: 5
        color: root.isPaused ? ABColor.statePaused : ABColor.stateActive

        Behavior on color {
            ABColorFade {
                motion: ABMotion.crossfade
            }
        }
    }
}
