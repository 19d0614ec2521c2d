import QtQuick
import Ambrel.DesignSystem
import Ambrel.UI

/// The editor of the selected rule, if it has one.
Item {
    id: root

    required property RulesModel rules

    signal reset
    signal remove(name: string)

    RuleModel {
        id: rule

        rules: root.rules
    }
    RuleEditor {
        anchors.fill: parent
        visible: rule.exists
        rule: rule
        onReset: root.reset()
        onRemove: root.remove(rule.displayName)
    }
    ABText {
        anchors.centerIn: parent
        visible: !rule.exists
        color: ABColor.textSecondary
        text: qsTr("Select an app")
    }
}
