import QtQuick
import QtQuick.Layouts
import Ambrel.DesignSystem
import Ambrel.UI

/// An application in a list, and what its rule is like.
ABRow {
    id: root

    property string subtitle: ""
    property string iconSource: ""
    property bool locked: false
    property bool active: false

    horizontalPadding: 8
    verticalPadding: 4
    Accessible.role: Accessible.ListItem
    Accessible.name: text
    Accessible.description: locked ? qsTr("%1, locked").arg(subtitle) : active ? qsTr("%1, has settings of its own").arg(subtitle) : subtitle
    Accessible.selectable: true
    Accessible.selected: selected

    contentItem: RowLayout {
        spacing: 8

        AppIcon {
            source: root.iconSource
        }
        ColumnLayout {
            Layout.fillWidth: true
            spacing: 0

            ABText {
                Layout.fillWidth: true
                text: root.text
                Accessible.ignored: true
            }
            ABText {
                Layout.fillWidth: true
                style: ABFont.caption
                color: ABColor.textSecondary
                text: root.subtitle
                Accessible.ignored: true
            }
        }
        ABSymbol {
            Layout.preferredWidth: 12
            Layout.preferredHeight: 12
            visible: root.locked
            size: 12
            name: "lock.fill"
            color: ABColor.textSecondary
            opacity: 0.6
        }
        Rectangle {
            Layout.preferredWidth: 6
            Layout.preferredHeight: 6
            visible: root.active && !root.locked
            radius: 3
            color: ABColor.accent
        }
    }
}
