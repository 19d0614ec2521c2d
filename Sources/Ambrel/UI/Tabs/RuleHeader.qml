import QtQuick
import QtQuick.Layouts
import Ambrel.DesignSystem
import Ambrel.UI

/// Whose rule it is.
RowLayout {
    id: root

    required property RuleModel rule

    spacing: 12

    AppIcon {
        size: 32
        source: root.rule.iconSource
    }
    ColumnLayout {
        Layout.fillWidth: true
        spacing: 0

        ABText {
            Layout.fillWidth: true
            style: ABFont.heading
            text: root.rule.isDefault ? qsTr("Default rule") : root.rule.displayName
            Accessible.role: Accessible.Heading
        }
        ABText {
            Layout.fillWidth: true
            style: ABFont.caption
            color: ABColor.textSecondary
            text: root.rule.isDefault ? qsTr("Applied to apps without their own rule") : root.rule.bundleIdentifier
        }
    }
}
