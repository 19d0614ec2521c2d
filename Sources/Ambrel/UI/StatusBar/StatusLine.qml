import QtQuick
import QtQuick.Layouts
import Ambrel.DesignSystem
import Ambrel.UI

/// What the program is doing, in one line.
RowLayout {
    id: root

    required property SettingsModel settings
    required property EngineModel engine

    spacing: 8

    StateDot {
        isPaused: root.settings.isPaused
    }
    ChangingText {
        readonly property int count: root.engine.monitoredCount

        Layout.fillWidth: true
        style: ABFont.bodyMedium
        text: {
            if (root.settings.isPaused)
                return qsTr("Paused — auto-quit off");
            return count === 1 ? qsTr("Active · watching %1 app").arg(count) : qsTr("Active · watching %1 apps").arg(count);
        }
    }
}
