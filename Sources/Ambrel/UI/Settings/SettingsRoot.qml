import QtQuick
import Ambrel.UI

/// The settings in one of their two forms.
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
    /// At first the form that was chosen last; the choice is then this view's.
    property bool isAdvanced: settings.settingsAdvancedMode

    focus: true
    LayoutMirroring.enabled: Application.layoutDirection === Qt.RightToLeft
    LayoutMirroring.childrenInherit: true

    function setAdvanced(value: bool): void {
        isAdvanced = value;
        settings.settingsAdvancedMode = value;
    }

    WindowSizer {
        isAdvanced: root.settings.settingsAdvancedMode
    }

    Crossfade {
        anchors.fill: parent
        focus: true
        delay: 50
        sourceComponent: root.isAdvanced ? advanced : simple
    }

    Component {
        id: simple

        SimpleSettingsView {
            focus: true
            settings: root.settings
            login: root.login
            onShowAdvanced: root.setAdvanced(true)
        }
    }
    Component {
        id: advanced

        AdvancedSettingsView {
            focus: true
            settings: root.settings
            engine: root.engine
            appearance: root.appearance
            hotKey: root.hotKey
            login: root.login
            history: root.history
            about: root.about
            updates: root.updates
            rules: root.rules
            chooser: root.chooser
            onHideAdvanced: root.setAdvanced(false)
        }
    }
}
