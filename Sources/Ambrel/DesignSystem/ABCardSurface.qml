import QtQuick
import Ambrel.DesignSystem

/// What a card lies on.
ABSurface {
    radius: ABMetric.cardRadius
    color: ABColor.contentBg
    edge: ABColor.divider
    edgePixels: ABAppearance.highContrast ? 2 : 1
}
