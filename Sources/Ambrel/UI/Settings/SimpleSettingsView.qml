import QtQuick
import QtQuick.Layouts
import Ambrel.DesignSystem
import Ambrel.UI

/// The settings most people need.
Item {
    id: root

    required property SettingsModel settings
    required property LoginSwitch login
    readonly property bool onScreen: Window.visibility !== Window.Hidden

    signal showAdvanced

    onOnScreenChanged: if (onScreen) login.refresh()

    ColumnLayout {
        anchors.fill: parent
        anchors.leftMargin: 28
        anchors.rightMargin: 28
        anchors.topMargin: 24
        anchors.bottomMargin: 24
        spacing: 20

        RowLayout {
            spacing: 12

            AmbrelIcon {}
            ABText {
                Layout.fillWidth: true
                style: ABFont.display
                text: qsTr("Ambrel")
            }
        }
        ABDivider {
            Layout.fillWidth: true
        }
        SimpleSettingRow {
            title: qsTr("Auto-quit on close")
            isOn: !root.settings.isPaused
            Layout.fillWidth: true
            onEdited: value => root.settings.isPaused = !value
        }
        SimpleSettingRow {
            title: qsTr("Quit only after the last window closes")
            isOn: root.settings.quitOnlyWhenOneWindowLeft
            Layout.fillWidth: true
            onEdited: value => root.settings.quitOnlyWhenOneWindowLeft = value
        }
        Item {
            Layout.fillHeight: true
        }
        RowLayout {
            Layout.fillWidth: true

            spacing: 8

            ABCheckBox {
                Layout.fillWidth: true
                text: qsTr("Launch at Login")
                isOn: root.login.isEnabled
                onEdited: value => root.login.set(value)
            }
            ABGlassButton {
                text: qsTr("Advanced…")
                onClicked: root.showAdvanced()
            }
        }
    }
}
