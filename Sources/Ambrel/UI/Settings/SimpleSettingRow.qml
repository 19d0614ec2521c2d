import QtQuick
import Ambrel.DesignSystem

/// A title with its switch.
SettingRow {
    id: root

    property bool isOn: false

    signal edited(value: bool)

    ABToggle {
        label: root.title
        isOn: root.isOn
        onEdited: value => root.edited(value)
    }
}
