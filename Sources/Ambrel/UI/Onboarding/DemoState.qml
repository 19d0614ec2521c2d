import QtQuick
import QtQuick.Layouts
import Ambrel.DesignSystem
import Ambrel.UI

/// The engine shown at work on the text editor.
FocusScope {
    id: root

    required property OnboardingSteps steps

    focus: true
    Component.onCompleted: {
        if (ABRenderConfig.drawsPictures)
            return;
        check.jump(0.3);
        check.target = 1;
    }

    ABSpring {
        id: check

        motion: ABMotion.standard
        epsilon: 0.002
        target: 1
    }

    ColumnLayout {
        anchors.fill: parent
        anchors.leftMargin: 40
        anchors.rightMargin: 40
        anchors.topMargin: 18
        anchors.bottomMargin: 18
        spacing: 0

        Item {
            Layout.fillHeight: true
        }
        ABSymbol {
            Layout.alignment: Qt.AlignHCenter
            Layout.preferredWidth: 48
            Layout.preferredHeight: 48
            name: "checkmark.circle.fill"
            size: 48
            color: ABColor.success
            scale: check.value
        }
        Gap {
            points: 16
        }
        ABText {
            Layout.fillWidth: true
            horizontalAlignment: Text.AlignHCenter
            text: qsTr("You're set")
            style: ABFont.display
            Accessible.role: Accessible.Heading
        }
        Gap {
            points: 8
        }
        ABText {
            Layout.fillWidth: true
            Layout.maximumWidth: 420
            Layout.alignment: Qt.AlignHCenter
            horizontalAlignment: Text.AlignHCenter
            text: qsTr("Ambrel lives in your menu bar — the X icon at the top of your screen. Try it: open TextEdit, then close its window.")
            color: ABColor.textSecondary
        }
        Gap {
            points: 28
        }
        DemoCard {
            Layout.alignment: Qt.AlignHCenter
            Layout.preferredWidth: 440
            Layout.preferredHeight: 80
            demo: root.steps.demo
            announcement: root.steps.announcement
        }
        Gap {
            points: 14
        }
        RowLayout {
            Layout.alignment: Qt.AlignHCenter
            spacing: 8

            ABGlassButton {
                visible: !root.steps.textEditRunning && root.steps.demo !== OnboardingSteps.Completed
                text: qsTr("Open TextEdit")
                onClicked: root.steps.openTextEdit()
            }
            ABGlassButton {
                focus: true
                prominent: true
                large: true
                text: qsTr("Done")
                onClicked: root.steps.done()
            }
        }
        Item {
            Layout.fillHeight: true
        }
    }
}
