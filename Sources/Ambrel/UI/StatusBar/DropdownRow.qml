import QtQuick
import QtQuick.Layouts
import Ambrel.DesignSystem

/// One command of the dropdown.
ABRow {
    id: root

    property string symbol: ""
    property string shortcut: ""

    Layout.fillWidth: true
    implicitHeight: Math.max(44, implicitContentHeight + 8)
    fillInset: 8
    Accessible.role: Accessible.MenuItem
    Keys.onDownPressed: nextItemInFocusChain(true).forceActiveFocus(Qt.TabFocusReason)
    Keys.onUpPressed: nextItemInFocusChain(false).forceActiveFocus(Qt.BacktabFocusReason)

    contentItem: RowLayout {
        spacing: 8

        ABSymbol {
            Layout.preferredWidth: 18
            Layout.preferredHeight: 18
            visible: root.symbol.length > 0
            name: root.symbol
            color: ABColor.textSecondary
        }
        ABText {
            Layout.fillWidth: true
            text: root.text
            Accessible.ignored: true
        }
        ABText {
            visible: root.shortcut.length > 0
            text: root.shortcut
            color: ABColor.textTertiary
            Accessible.ignored: true
        }
    }
}
