import QtQuick
import QtQuick.Layouts
import Ambrel.DesignSystem

/// A group of a rule's settings under its title.
ABCard {
    id: root

    property string title: ""
    default property alias settings: column.data

    padding: 16
    Layout.fillWidth: true

    contentItem: ColumnLayout {
        id: column

        spacing: 12

        SectionTitle {
            Layout.fillWidth: true
            text: root.title
        }
    }
}
