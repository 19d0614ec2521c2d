import QtQuick
import QtQuick.Layouts
import Ambrel.DesignSystem
import Ambrel.UI

/// Whether newer versions are asked for, and the way to ask now. Where there is no one to ask, it says so.
ABCard {
    id: root

    required property UpdatesModel updates
    readonly property bool canCheck: updates.isSupported && updates.isAvailable

    ColumnLayout {
        spacing: 14

        SettingRow {
            Layout.fillWidth: true
            title: qsTr("Automatic updates")
            description: {
                if (!root.updates.isSupported)
                    return qsTr("Ambrel does not run from its application folder and is not updated.");
                if (!root.updates.isAvailable)
                    return qsTr("This system has no package service that can be asked for new versions.");
                if (root.updates.offeredVersion.length > 0)
                    return qsTr("Version %1 is available.").arg(root.updates.offeredVersion);
                return qsTr("Asks daily for new versions from ambrel.app, through the system's package service.");
            }

            ABToggle {
                label: qsTr("Automatic updates")
                isOn: root.updates.automaticallyChecks
                enabled: root.canCheck
                onEdited: value => root.updates.automaticallyChecks = value
            }
        }
        RowLayout {
            ABGlassButton {
                text: qsTr("Check for Updates…")
                enabled: root.canCheck
                onClicked: root.updates.checkForUpdates()
            }
            Item {
                Layout.fillWidth: true
            }
        }
    }
}
