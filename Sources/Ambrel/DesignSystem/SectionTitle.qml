import QtQuick
import Ambrel.DesignSystem

/// The heading of a group.
ABText {
    style: ABFont.title
    Accessible.role: Accessible.Heading
}
