import QtQuick
import QtQuick.Shapes
import Ambrel.DesignSystem

/// The tick in a box of 16.
Shape {
    ShapePath {
        strokeWidth: 2
        strokeColor: ABColor.accentText
        fillColor: "transparent"
        capStyle: ShapePath.RoundCap
        joinStyle: ShapePath.RoundJoin
        startX: 4
        startY: 8.5

        PathLine { x: 7; y: 11.25 }
        PathLine { x: 12; y: 5 }
    }
}
