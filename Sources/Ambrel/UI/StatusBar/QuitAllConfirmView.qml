import QtQuick
import QtQuick.Layouts
import Ambrel.DesignSystem
import Ambrel.UI

/// The question before Quit All.
FocusScope {
    id: root

    required property int count
    required property bool force
    required property QuitAllConfirmation answer

    implicitWidth: 300
    implicitHeight: column.implicitHeight + 36
    focus: true
    LayoutMirroring.enabled: Application.layoutDirection === Qt.RightToLeft
    LayoutMirroring.childrenInherit: true
    Accessible.role: Accessible.Dialog
    Accessible.name: title.text

    Keys.onReturnPressed: answer.confirm()
    Keys.onEnterPressed: answer.confirm()

    ABGlass {
        anchors.fill: parent
    }

    ColumnLayout {
        id: column

        x: 18
        y: 18
        width: parent.width - 36
        spacing: 14

        RowLayout {
            Layout.fillWidth: true
            spacing: 10

            ABSymbol {
                Layout.preferredWidth: 18
                Layout.preferredHeight: 18
                size: 18
                name: root.force ? "exclamationmark.triangle.fill" : "xmark.circle.fill"
                color: root.force ? ABColor.warning : ABColor.textSecondary
            }
            ABText {
                id: title

                Layout.fillWidth: true
                style: ABFont.heading
                text: {
                    if (root.force)
                        return root.count === 1 ? qsTr("Force quit %1 app?").arg(root.count) : qsTr("Force quit %1 apps?").arg(root.count);
                    return root.count === 1 ? qsTr("Quit %1 app?").arg(root.count) : qsTr("Quit %1 apps?").arg(root.count);
                }
            }
        }
        ABText {
            Layout.fillWidth: true
            style: ABFont.caption
            color: ABColor.textSecondary
            text: root.force ? qsTr("Force quitting skips save prompts — unsaved work may be lost.") : qsTr("Apps with unsaved changes will ask you to save.")
        }
        RowLayout {
            Layout.fillWidth: true
            spacing: 10

            Item {
                Layout.fillWidth: true
            }
            ABGlassButton {
                text: qsTr("Cancel")
                onClicked: root.answer.cancel()
            }
            ABGlassButton {
                prominent: true
                focus: true
                text: root.force ? qsTr("Force Quit") : qsTr("Quit All")
                onClicked: root.answer.confirm()
            }
        }
    }
}
