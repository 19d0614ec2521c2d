import QtQuick
import Ambrel.DesignSystem

/// A title with its switch.
SettingRow {
    id: root

    property bool isOn: false
    /// What the switch is called where the title is not enough.
    property string label: title

    signal edited(value: bool)

    ABToggle {
        label: root.label
        isOn: root.isOn
        onEdited: value => root.edited(value)
    }
}
