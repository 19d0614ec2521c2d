import QtQuick
import Ambrel.DesignSystem

/// A surface of glass in a rounded shape. No desktop of ours has glass, so this is the material that stands in for it.
ABSurface {
    enum Style { Regular, Interactive, Prominent }

    property int style: ABGlass.Regular

    radius: ABMetric.panelRadius
    color: style === ABGlass.Prominent ? ABColor.withAlpha(ABColor.accent, 0.85) : ABColor.material
    edge: ABColor.materialEdge
    edgePixels: ABAppearance.highContrast ? 2 : 1
}
