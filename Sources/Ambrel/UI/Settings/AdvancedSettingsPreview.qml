import QtQuick
import Ambrel.DesignSystem
import Ambrel.UI

/// The advanced settings standing still, for pictures: nothing in it answers.
Item {
    id: root

    required property SettingsModel settings
    required property EngineModel engine

    SettingsSidebar {
        id: sidebar

        width: 200
        height: parent.height
        selection: AdvancedSettingsView.General
    }
    ABDivider {
        upright: true
        height: parent.height
        anchors.left: sidebar.right
    }
}
