import QtQuick
import Ambrel.DesignSystem
import Ambrel.UI

/// Every setting, in tabs.
FocusScope {
    id: root

    required property SettingsModel settings
    required property EngineModel engine
    required property AppearanceGuard appearance
    required property HotKeySwitch hotKey
    required property LoginSwitch login
    required property HistoryModel history
    required property AboutModel about
    required property UpdatesModel updates
    required property RulesModel rules
    required property ApplicationChooser chooser
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
        sourceComponent: [generalPage, rulesPage, historyPage, aboutPage][root.selection]
    }

    Component {
        id: generalPage

        ABScrollView {
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
    Component {
        id: rulesPage

        AppRulesTab {
            rules: root.rules
            chooser: root.chooser
        }
    }
    Component {
        id: historyPage

        ABScrollView {
            HistoryTab {
                width: parent.width
                history: root.history
            }
        }
    }
    Component {
        id: aboutPage

        ABScrollView {
            id: aboutScroll

            AboutTab {
                width: parent.width
                height: Math.max(implicitHeight, aboutScroll.height)
                about: root.about
                updates: root.updates
            }
        }
    }
}
