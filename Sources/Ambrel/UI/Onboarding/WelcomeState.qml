import QtQuick
import QtQuick.Layouts
import Ambrel.DesignSystem
import Ambrel.UI

/// What Ambrel does, and the permission that it needs for that.
FocusScope {
    id: root

    required property OnboardingSteps steps
    readonly property bool isWaiting: steps.state === OnboardingSteps.WaitingForPermission

    focus: true

    ColumnLayout {
        anchors.fill: parent
        anchors.leftMargin: 40
        anchors.rightMargin: 40
        anchors.topMargin: 12
        anchors.bottomMargin: 6
        spacing: 0

        Item {
            Layout.fillHeight: true
        }
        ABGlass {
            Layout.alignment: Qt.AlignHCenter
            Layout.preferredWidth: 108
            Layout.preferredHeight: 108
            radius: width / 2

            AmbrelIcon {
                anchors.centerIn: parent
                size: 80
            }
        }
        Gap {
            points: 18
        }
        ABText {
            Layout.fillWidth: true
            horizontalAlignment: Text.AlignHCenter
            text: qsTr("Welcome to Ambrel")
            style: ABFont.hero
            Accessible.role: Accessible.Heading
        }
        Gap {
            points: 10
        }
        ABText {
            Layout.fillWidth: true
            Layout.maximumWidth: 400
            Layout.alignment: Qt.AlignHCenter
            horizontalAlignment: Text.AlignHCenter
            text: qsTr("Close the last window of an app, and Ambrel quits it. Like Windows. Finally.")
            color: ABColor.textSecondary
        }
        Gap {
            points: 22
        }
        PermissionPill {
            Layout.alignment: Qt.AlignHCenter
            Layout.preferredWidth: 320
            Layout.preferredHeight: 56
            isWaiting: root.isWaiting
        }
        Gap {
            points: 16
        }
        ABGlassButton {
            Layout.fillWidth: true
            Layout.leftMargin: 40
            Layout.rightMargin: 40
            focus: true
            prominent: true
            large: true
            text: root.isWaiting ? qsTr("Open System Settings") : qsTr("Get Started")
            onClicked: root.isWaiting ? root.steps.openSystemSettings() : root.steps.getStarted()
        }
        Gap {
            points: 10
        }
        ABText {
            Layout.fillWidth: true
            horizontalAlignment: Text.AlignHCenter
            text: qsTr("Ambrel reads window state only — never keystrokes or content. You can revoke access anytime in System Settings → Privacy & Security.")
            style: ABFont.caption
            color: ABColor.textTertiary
        }
        Gap {
            // The button brings some of the room with it.
            points: 3
        }
        ABPlainButton {
            Layout.alignment: Qt.AlignHCenter
            text: qsTr("Set Up Later")
            onClicked: root.steps.setUpLater()
        }
        Item {
            Layout.fillHeight: true
        }
    }
}
