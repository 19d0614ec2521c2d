import QtQuick
import QtQuick.Layouts
import Ambrel.DesignSystem

/// The list of tabs, and under it the way back to the simple form.
FocusScope {
    id: root

    required property int selection

    signal selected(tab: int)
    signal hideAdvanced

    readonly property var tabs: [
        { label: qsTr("General"), symbol: "gearshape" },
        { label: qsTr("App Rules"), symbol: "slider.horizontal.3" },
        { label: qsTr("History"), symbol: "clock.arrow.circlepath" },
        { label: qsTr("About"), symbol: "info.circle" }
    ]

    function move(step: int): void {
        const next = Math.max(0, Math.min(tabs.length - 1, selection + step));
        // First the keyboard: a tab that is no longer selected must not hold it.
        rows.itemAt(next).forceActiveFocus(Qt.TabFocusReason);
        selected(next);
    }

    ColumnLayout {
        anchors.fill: parent
        spacing: 0

        ColumnLayout {
            Layout.fillWidth: true
            Layout.margins: 12
            spacing: 2
            Accessible.role: Accessible.PageTabList
            Accessible.name: qsTr("Settings")

            Repeater {
                id: rows

                model: root.tabs

                SidebarRow {
                    required property int index
                    required property var modelData

                    Layout.fillWidth: true
                    focus: index === 0
                    text: modelData.label
                    symbol: modelData.symbol
                    selected: index === root.selection
                    onClicked: root.selected(index)
                    Keys.onUpPressed: root.move(-1)
                    Keys.onDownPressed: root.move(1)
                }
            }
        }
        Item {
            Layout.fillHeight: true
        }
        ABDivider {
            Layout.fillWidth: true
        }
        ABPlainButton {
            Layout.fillWidth: true
            Layout.margins: 12
            leading: true
            text: qsTr("Hide Advanced")
            symbol: "chevron.left"
            symbolMirrored: mirrored
            style: ABFont.caption
            color: ABColor.textSecondary
            onClicked: root.hideAdvanced()
        }
    }
}
