import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import Ambrel.DesignSystem
import Ambrel.UI

/// The state in large, which a click turns over.
T.AbstractButton {
    id: root

    required property SettingsModel settings
    required property EngineModel engine
    readonly property int count: engine.monitoredCount

    implicitWidth: row.implicitWidth
    implicitHeight: Math.max(row.implicitHeight, ABMetric.target)
    onClicked: settings.isPaused = !settings.isPaused
    Keys.onReturnPressed: clicked()
    Keys.onEnterPressed: clicked()

    Accessible.role: Accessible.Button
    Accessible.name: settings.isPaused ? qsTr("Paused. Auto-quit is off.") : qsTr("Active. Watching %1 apps.").arg(count)
    Accessible.description: qsTr("Toggles auto-quit")

    contentItem: RowLayout {
        id: row

        spacing: 12

        StateDot {
            isPaused: root.settings.isPaused
        }
        ColumnLayout {
            Layout.fillWidth: true
            spacing: 2

            ChangingText {
                Layout.fillWidth: true
                style: ABFont.display
                text: root.settings.isPaused ? qsTr("Paused") : qsTr("Active")
            }
            ChangingText {
                Layout.fillWidth: true
                style: ABFont.caption
                color: ABColor.textSecondary
                text: {
                    if (root.settings.isPaused)
                        return qsTr("Auto-quit is off.");
                    return root.count === 1 ? qsTr("Watching %1 app.").arg(root.count) : qsTr("Watching %1 apps.").arg(root.count);
                }
            }
        }
    }

    ABFocusRing {
        control: root
    }
    ABHelp {
        text: root.settings.isPaused ? qsTr("Click to resume auto-quit") : qsTr("Click to pause auto-quit")
        visible: root.hovered
    }
}
