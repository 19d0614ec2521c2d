import QtQuick
import QtQuick.Layouts
import Ambrel.DesignSystem
import Ambrel.UI

/// Everything about one rule. What is changed counts at once.
ABScrollView {
    id: root

    required property RuleModel rule
    readonly property bool takesIdle: !rule.locked && !rule.isDefault

    signal reset
    signal remove

    ColumnLayout {
        x: 16
        width: root.width - 32
        spacing: 20

        RuleHeader {
            Layout.fillWidth: true
            Layout.topMargin: 16
            rule: root.rule
        }
        ABDivider {
            Layout.fillWidth: true
        }
        RuleCard {
            title: qsTr("When you close the last window")

            SettingRow {
                Layout.fillWidth: true
                title: qsTr("Quit this app")
                description: qsTr("Ambrel quits this app when its last window closes.")

                ABToggle {
                    label: qsTr("Quit when the last window closes")
                    isOn: root.rule.quitOnLastWindowClose
                    enabled: !root.rule.locked
                    onEdited: value => root.rule.quitOnLastWindowClose = value
                }
            }
        }
        RuleCard {
            title: qsTr("When it hides instead of closing")

            SettingRow {
                Layout.fillWidth: true
                title: qsTr("Quit when the app hides")
                description: qsTr("For apps like Discord or Slack that hide to the background instead of quitting when you close their window. Also quits the app when you ⌘H it.")

                ABToggle {
                    label: qsTr("Quit when hidden")
                    isOn: root.rule.quitWhenHidden
                    enabled: root.takesIdle
                    onEdited: value => root.rule.quitWhenHidden = value
                }
            }
        }
        RuleCard {
            title: qsTr("When this app is idle")

            ABPicker {
                Layout.fillWidth: true
                Layout.maximumWidth: 240
                label: qsTr("When this app is idle")
                options: [qsTr("None"), qsTr("Hide"), qsTr("Quit")]
                currentIndex: root.rule.idleBehavior
                enabled: root.takesIdle
                onPicked: index => root.rule.idleBehavior = index
            }
            ABStepper {
                Layout.fillWidth: true
                Layout.maximumWidth: 240
                visible: root.rule.idleBehavior !== RuleModel.None
                value: root.rule.idleThresholdMinutes
                from: 5
                to: 120
                stepSize: 5
                text: qsTr("After %1 minutes").arg(value)
                enabled: root.takesIdle
                onEdited: value => root.rule.idleThresholdMinutes = value
            }
            ABText {
                Layout.fillWidth: true
                visible: root.rule.idleBehavior !== RuleModel.None
                style: ABFont.caption
                color: ABColor.textSecondary
                text: root.rule.idleBehavior === RuleModel.Hide ? qsTr("Hides the app (keeps its state) once idle this long.") : qsTr("Quits the app once idle this long.")
            }
        }
        RuleCard {
            title: qsTr("Quit All")

            SettingRow {
                Layout.fillWidth: true
                title: qsTr("Include in Quit All")
                description: qsTr("When you trigger Quit All, this app is included.")

                ABToggle {
                    label: qsTr("Include in Quit All")
                    isOn: root.rule.includedInQuitAll
                    enabled: !root.rule.locked
                    onEdited: value => root.rule.includedInQuitAll = value
                }
            }
        }
        Flow {
            Layout.fillWidth: true
            Layout.topMargin: 4
            Layout.bottomMargin: 16
            visible: !root.rule.locked
            spacing: 18

            ABPlainButton {
                width: Math.min(implicitWidth, parent.width)
                text: qsTr("Reset to Defaults")
                onClicked: root.reset()
            }
            ABPlainButton {
                width: Math.min(implicitWidth, parent.width)
                visible: !root.rule.isDefault
                text: qsTr("Remove")
                onClicked: root.remove()
            }
        }
    }
}
