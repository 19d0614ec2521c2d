import QtQuick
import Ambrel.DesignSystem

/// A colour in one of the timed motions of ABMotion.
ColorAnimation {
    property abTimedMotion motion: ABMotion.hover

    duration: ABAppearance.reducedMotion ? Math.min(motion.duration, 120) : motion.duration
    easing.type: Easing.BezierSpline
    easing.bezierCurve: motion.curve
}
