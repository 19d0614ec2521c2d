import QtQuick
import QtQuick.Layouts
import Ambrel.DesignSystem
import Ambrel.UI

/// What is wrong while Ambrel may not see windows, and how to put it right.
FocusScope {
    id: root

    required property GatePermission permission

    focus: true
    LayoutMirroring.enabled: Application.layoutDirection === Qt.RightToLeft
    LayoutMirroring.childrenInherit: true
    // One step above the usual size.
    ABDynamicType.maximum: 1.12

    WindowDrag {}

    ColumnLayout {
        anchors.fill: parent
        anchors.margins: 24
        spacing: 0

        Item {
            Layout.fillHeight: true
        }
        AmbrelIcon {
            Layout.alignment: Qt.AlignHCenter
            size: 52
        }
        Gap {
            points: 14
        }
        ABText {
            Layout.fillWidth: true
            horizontalAlignment: Text.AlignHCenter
            text: qsTr("Ambrel lost its permission")
            style: ABFont.title
            Accessible.role: Accessible.Heading
        }
        Gap {
            points: 14
        }
        ABText {
            Layout.fillWidth: true
            horizontalAlignment: Text.AlignHCenter
            text: qsTr("Re-grant Accessibility access to keep auto-quitting apps.")
            color: ABColor.textSecondary
        }
        Gap {
            points: 14
        }
        ABGlassButton {
            Layout.fillWidth: true
            Layout.leftMargin: 36
            Layout.rightMargin: 36
            focus: true
            large: true
            text: qsTr("Open System Settings")
            onClicked: root.permission.openSettings()
        }
        Gap {
            points: 16
        }
        RowLayout {
            Layout.alignment: Qt.AlignHCenter
            spacing: 6

            ABSymbol {
                Layout.preferredWidth: 14
                Layout.preferredHeight: 14
                visible: root.permission.granted
                size: 14
                name: "checkmark.circle.fill"
                color: ABColor.success
            }
            PulsingDot {
                visible: !root.permission.granted
                size: 7
                color: ABColor.textTertiary
            }
            ABText {
                text: root.permission.granted ? qsTr("Permission granted") : qsTr("Waiting for permission…")
                style: ABFont.caption
                color: ABColor.textSecondary
            }
        }
        Item {
            Layout.fillHeight: true
        }
    }
}
