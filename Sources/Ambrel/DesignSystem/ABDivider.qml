import QtQuick
import Ambrel.DesignSystem

/// A hairline: one pixel of the device, two where contrast is increased. As wide as it is told to be, or, upright, as high.
ABHairline {
    implicitWidth: pixels / Screen.devicePixelRatio
    implicitHeight: implicitWidth
    color: ABColor.divider
    pixels: ABAppearance.highContrast ? 2 : 1
}
