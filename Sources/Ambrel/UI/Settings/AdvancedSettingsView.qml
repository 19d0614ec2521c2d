import QtQuick
import QtQuick.Layouts
import Ambrel.DesignSystem
import Ambrel.UI

/// Every setting, in tabs.
FocusScope {
    id: root

    required property SettingsModel settings
    required property EngineModel engine
    property int selection: AdvancedSettingsView.General

    signal hideAdvanced

    enum Tab {
        General,
        Rules,
        History,
        About
    }

    SettingsSidebar {
        id: sidebar

        focus: true
        width: 200
        height: parent.height
        anchors.left: parent.left
        selection: root.selection
        onSelected: tab => root.selection = tab
        onHideAdvanced: root.hideAdvanced()
    }
    ABDivider {
        id: edge

        upright: true
        height: parent.height
        anchors.left: sidebar.right
    }
    Crossfade {
        anchors {
            left: edge.right
            right: parent.right
            top: parent.top
            bottom: parent.bottom
        }
        sourceComponent: [general, rules, history, about][root.selection]
    }

    Component {
        id: general

        Item {}
    }
    Component {
        id: rules

        Item {}
    }
    Component {
        id: history

        Item {}
    }
    Component {
        id: about

        Item {}
    }
}
