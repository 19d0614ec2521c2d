import QtQuick
import QtQuick.Layouts
import Ambrel.DesignSystem

/// A symbol, two lines of text, and what may stand at the far end.
RowLayout {
    id: root

    property string symbol: ""
    property color symbolColor: ABColor.textSecondary
    property string title: ""
    property string subtitle: ""

    spacing: 12

    ABSymbol {
        Layout.preferredWidth: 24
        Layout.preferredHeight: 24
        name: root.symbol
        size: 20
        color: root.symbolColor
    }
    ColumnLayout {
        Layout.fillWidth: true
        spacing: 2

        ABText {
            Layout.fillWidth: true
            text: root.title
            style: ABFont.bodyMedium
        }
        ABText {
            Layout.fillWidth: true
            text: root.subtitle
            style: ABFont.caption
            color: ABColor.textSecondary
        }
    }
}
