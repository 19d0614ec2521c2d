import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import Ambrel.DesignSystem
import Ambrel.UI

/// The applications that run, with a search, and what can be done to them by hand.
FocusScope {
    id: root

    required property RunningAppsList apps

    focus: true
    LayoutMirroring.enabled: Application.layoutDirection === Qt.RightToLeft
    LayoutMirroring.childrenInherit: true
    Keys.onEscapePressed: Window.window.close()

    ColumnLayout {
        anchors.fill: parent
        spacing: 0

        ABTextField {
            Layout.fillWidth: true
            Layout.margins: 14
            focus: true
            placeholderText: qsTr("Search apps…")
            text: root.apps.query
            onTextChanged: root.apps.query = text
            Keys.onDownPressed: list.forceActiveFocus(Qt.TabFocusReason)
        }
        ABCardSurface {
            Layout.fillWidth: true
            Layout.fillHeight: true
            Layout.leftMargin: 14
            Layout.rightMargin: 14

            ListView {
                id: list

                anchors.fill: parent
                anchors.topMargin: 4
                anchors.bottomMargin: 4
                clip: true
                reuseItems: true
                boundsBehavior: Flickable.StopAtBounds
                keyNavigationEnabled: true
                highlightMoveDuration: 0
                model: root.apps
                Accessible.role: Accessible.List
                Accessible.name: qsTr("Running Apps")
                T.ScrollBar.vertical: ABScrollBar {}
                // One row is always where Tab enters the list.
                onCountChanged: if (currentIndex < 0 && count > 0)
                    currentIndex = 0
                Keys.onPressed: event => {
                    if (event.key !== Qt.Key_Home && event.key !== Qt.Key_End)
                        return;
                    currentIndex = event.key === Qt.Key_Home ? 0 : count - 1;
                    event.accepted = true;
                }

                delegate: RunningAppRow {
                    width: ListView.view.width
                    isCurrent: ListView.isCurrentItem
                    onUsed: list.currentIndex = index
                    onToggled: root.apps.toggleSelected(pid)
                    onQuit: root.apps.quit(pid)
                    onMenuRequested: button => {
                        menu.pid = pid;
                        menu.openUnder(button);
                    }
                }
            }
        }
        RowLayout {
            Layout.fillWidth: true
            Layout.margins: 14
            spacing: 12

            ABText {
                Layout.fillWidth: true
                text: qsTr("%1 running").arg(root.apps.count)
                style: ABFont.caption
                color: ABColor.textSecondary
            }
            ABGlassButton {
                prominent: true
                enabled: root.apps.selectedCount > 0
                text: qsTr("Quit Selected (%1)").arg(root.apps.selectedCount)
                onClicked: root.apps.quitSelected()
            }
        }
    }

    ABMenu {
        id: menu

        property int pid: 0

        ABMenuItem {
            text: qsTr("Force Quit")
            onTriggered: root.apps.forceQuit(menu.pid)
        }
        ABMenuItem {
            text: qsTr("Hide")
            onTriggered: root.apps.hide(menu.pid)
        }
        ABMenuItem {
            text: qsTr("Add to exclude list")
            onTriggered: root.apps.addToExcludeList(menu.pid)
        }
    }
}
