import QtQuick
import QtQuick.Layouts
import Ambrel.DesignSystem
import Ambrel.UI

/// What was lately done, and why.
Item {
    id: root

    required property HistoryModel history
    readonly property bool onScreen: Window.visibility !== Window.Hidden

    implicitHeight: column.implicitHeight + 36
    onOnScreenChanged: if (onScreen) history.appear()

    ColumnLayout {
        id: column

        anchors.left: parent.left
        anchors.leftMargin: 24
        y: 18
        width: Math.min(560, root.width - 48)
        spacing: 20

        GridLayout {
            Layout.fillWidth: true
            columns: heading.implicitWidth + showLog.implicitWidth + refresh.implicitWidth + 32 > root.width - 48 ? 1 : 3
            columnSpacing: 8
            rowSpacing: 8

            SectionTitle {
                id: heading

                Layout.fillWidth: true
                text: qsTr("History")
            }
            ABGlassButton {
                id: showLog

                symbol: "doc.text.magnifyingglass"
                text: qsTr("Show Log File")
                onClicked: root.history.showLogFile()
            }
            ABGlassButton {
                id: refresh

                symbol: "arrow.clockwise"
                text: qsTr("Refresh")
                onClicked: root.history.refresh()
            }
        }
        HistoryEmptyState {
            Layout.fillWidth: true
            visible: root.history.count === 0
            loaded: root.history.loaded
        }
        ABCard {
            Layout.fillWidth: true
            visible: root.history.count > 0
            horizontalPadding: 16
            verticalPadding: 4

            ColumnLayout {
                spacing: 0

                Repeater {
                    model: root.history

                    HistoryRow {
                        Layout.fillWidth: true
                    }
                }
            }
        }
        ABText {
            Layout.fillWidth: true
            visible: root.history.count > 0
            style: ABFont.caption
            color: ABColor.textSecondary
            wrapMode: Text.WrapAtWordBoundaryOrAnywhere
            text: root.history.caption
        }
    }
}
