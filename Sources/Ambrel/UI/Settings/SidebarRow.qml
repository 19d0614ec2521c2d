import QtQuick
import QtQuick.Layouts
import Ambrel.DesignSystem

/// One tab in the sidebar.
ABRow {
    id: root

    property string symbol: ""

    horizontalPadding: 8
    verticalPadding: 5
    focusPolicy: selected || activeFocus ? Qt.StrongFocus : Qt.NoFocus
    Accessible.role: Accessible.PageTab
    Accessible.selected: selected

    contentItem: RowLayout {
        spacing: 8

        ABSymbol {
            Layout.preferredWidth: 18
            Layout.preferredHeight: 18
            name: root.symbol
            color: root.selected ? ABColor.accent : ABColor.textSecondary
        }
        ABText {
            Layout.fillWidth: true
            style: root.selected ? ABFont.bodyMedium : ABFont.body
            text: root.text
            Accessible.ignored: true
        }
    }
}
