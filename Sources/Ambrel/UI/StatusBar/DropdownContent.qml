import QtQuick
import QtQuick.Layouts
import Ambrel.DesignSystem
import Ambrel.UI

/// The panel of everyday commands.
FocusScope {
    id: root

    required property SettingsModel settings
    required property EngineModel engine
    required property DropdownPanel actions

    implicitWidth: 300
    implicitHeight: glass.implicitHeight
    focus: true
    LayoutMirroring.enabled: Application.layoutDirection === Qt.RightToLeft
    LayoutMirroring.childrenInherit: true
    Accessible.role: Accessible.PopupMenu
    Accessible.name: qsTr("Ambrel")

    Keys.onPressed: event => {
        if (event.modifiers !== Qt.ControlModifier && event.modifiers !== Qt.MetaModifier)
            return;
        if (event.key === Qt.Key_Comma)
            root.actions.openSettings();
        else if (event.key === Qt.Key_Q)
            root.actions.quitApp();
        else
            return;
        event.accepted = true;
    }

    // Each opening begins at the top.
    Connections {
        target: root.Window.window

        function onVisibleChanged(): void {
            pause.forceActiveFocus(Qt.PopupFocusReason);
        }
    }

    ABGlassGroup {
        anchors.fill: parent
        spacing: 12

        ABGlass {
            id: glass

            implicitHeight: column.implicitHeight
            anchors.fill: parent

            ColumnLayout {
                id: column

                width: parent.width
                spacing: 0

                ColumnLayout {
                    Layout.fillWidth: true
                    Layout.margins: 16
                    spacing: 12

                    StatusLine {
                        Layout.fillWidth: true
                        settings: root.settings
                        engine: root.engine
                    }

                    ABGlassButton {
                        id: pause

                        Layout.fillWidth: true
                        large: true
                        leading: true
                        focus: true
                        Keys.onDownPressed: nextItemInFocusChain(true).forceActiveFocus(Qt.TabFocusReason)
                        Keys.onUpPressed: nextItemInFocusChain(false).forceActiveFocus(Qt.BacktabFocusReason)
                        symbol: root.settings.isPaused ? "play.fill" : "pause.fill"
                        text: root.settings.isPaused ? qsTr("Resume") : qsTr("Pause")
                        onClicked: root.actions.togglePause()
                    }
                }

                ABDivider {
                    Layout.fillWidth: true
                    Layout.leftMargin: 12
                    Layout.rightMargin: 12
                }

                ColumnLayout {
                    Layout.fillWidth: true
                    Layout.topMargin: 4
                    Layout.bottomMargin: 4
                    spacing: 0

                    DropdownRow {
                        symbol: "rectangle.stack.badge.minus"
                        text: qsTr("Quit All Apps")
                        shortcut: "⌘⌥⇧Q"
                        onClicked: root.actions.quitAll()
                    }
                    DropdownRow {
                        symbol: "macwindow.on.rectangle"
                        text: qsTr("Running Apps…")
                        onClicked: root.actions.runningApps()
                    }
                    DropdownRow {
                        symbol: "gearshape"
                        text: qsTr("Settings…")
                        shortcut: "⌘,"
                        onClicked: root.actions.openSettings()
                    }
                }

                ABDivider {
                    Layout.fillWidth: true
                    Layout.leftMargin: 12
                    Layout.rightMargin: 12
                }

                DropdownRow {
                    Layout.topMargin: 4
                    Layout.bottomMargin: 4
                    symbol: "power"
                    text: qsTr("Quit Ambrel")
                    shortcut: "⌘Q"
                    onClicked: root.actions.quitApp()
                }
            }
        }
    }
}
