import QtQuick
import Ambrel.DesignSystem

/// A dot that breathes while something is waited for; it stands still where motion is reduced.
Rectangle {
    id: root

    property int size: 8

    implicitWidth: size
    implicitHeight: size
    radius: size / 2
    color: ABColor.accent

    SequentialAnimation on opacity {
        running: root.visible && !ABAppearance.reducedMotion && !ABRenderConfig.drawsPictures
        loops: Animation.Infinite
        onRunningChanged: if (!running)
            root.opacity = 1

        NumberAnimation {
            to: 0.25
            duration: 900
            easing.type: Easing.BezierSpline
            easing.bezierCurve: [0.42, 0, 0.58, 1, 1, 1]
        }
        NumberAnimation {
            to: 1
            duration: 900
            easing.type: Easing.BezierSpline
            easing.bezierCurve: [0.42, 0, 0.58, 1, 1, 1]
        }
    }
}
