import QtQuick
import QtQuick.Layouts
import Ambrel.DesignSystem

/// Settings that belong together, under their heading.
ColumnLayout {
    property alias title: heading.text

    Layout.fillWidth: true
    spacing: 14

    SectionTitle {
        id: heading

        Layout.fillWidth: true
    }
}
