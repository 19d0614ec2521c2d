import QtQuick
import Ambrel.DesignSystem

/// An opacity, or another share of a picture, in one of the timed motions of ABMotion.
NumberAnimation {
    property abTimedMotion motion: ABMotion.crossfade

    duration: ABAppearance.reducedMotion ? Math.min(motion.duration, 120) : motion.duration
    easing.type: Easing.BezierSpline
    easing.bezierCurve: motion.curve
}
