import QtQuick
import Ambrel.DesignSystem
import Ambrel.UI

/// The advanced settings standing still, for pictures: nothing in it answers.
Item {
    id: root

    required property SettingsModel settings
    required property EngineModel engine
    required property AppearanceGuard appearance
    required property HotKeySwitch hotKey
    required property LoginSwitch login

    SettingsSidebar {
        id: sidebar

        width: 200
        height: parent.height
        selection: AdvancedSettingsView.General
    }
    ABDivider {
        id: edge

        upright: true
        height: parent.height
        anchors.left: sidebar.right
    }
    Item {
        anchors.left: edge.right
        anchors.right: parent.right
        height: parent.height
        clip: true

        GeneralTab {
            width: parent.width
            settings: root.settings
            engine: root.engine
            appearance: root.appearance
            hotKey: root.hotKey
            login: root.login
        }
    }
}
