import QtQuick
import QtQuick.Layouts
import Ambrel.DesignSystem

/// What stands in place of the list while there is nothing to list.
ColumnLayout {
    id: root

    required property bool loaded

    spacing: 8

    ABSymbol {
        Layout.alignment: Qt.AlignHCenter
        Layout.topMargin: 72
        Layout.preferredWidth: size
        Layout.preferredHeight: size
        size: 32
        name: "clock.arrow.circlepath"
        color: ABColor.textTertiary
    }
    ABText {
        Layout.fillWidth: true
        horizontalAlignment: Text.AlignHCenter
        style: ABFont.bodyMedium
        text: root.loaded ? qsTr("No quits yet") : qsTr("Loading…")
    }
    ABText {
        Layout.fillWidth: true
        visible: root.loaded
        horizontalAlignment: Text.AlignHCenter
        style: ABFont.caption
        color: ABColor.textSecondary
        text: qsTr("Every decision Ambrel makes — quits and the ones it held back — shows up here.")
    }
}
