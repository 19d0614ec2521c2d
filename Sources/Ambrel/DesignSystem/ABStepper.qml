import QtQuick
import QtQuick.Templates as T
import Ambrel.DesignSystem

/// A number that goes up and down in steps, `text` saying it in words. It shows `value`, even one that lies outside; `edited`
/// asks for the next one, which never does.
T.Control {
    id: root

    property string label: ""
    property string text: String(value)
    property int value: 0
    property int from: 0
    property int to: 100
    property int stepSize: 1
    signal edited(int value)

    implicitWidth: words.implicitWidth + 16 + buttons.width
    implicitHeight: Math.max(words.implicitHeight, ABMetric.target)
    focusPolicy: Qt.StrongFocus
    opacity: enabled ? 1 : 0.4
    Accessible.role: Accessible.SpinBox
    Accessible.name: label.length > 0 ? label : text
    Accessible.onIncreaseAction: move(1)
    Accessible.onDecreaseAction: move(-1)
    Keys.onUpPressed: move(1)
    Keys.onDownPressed: move(-1)

    function move(by: int) {
        const next = Math.max(from, Math.min(to, value + by * stepSize));
        if (next !== value)
            edited(next);
    }

    ABText {
        id: words

        anchors.left: parent.left
        anchors.right: buttons.left
        anchors.rightMargin: 16
        anchors.verticalCenter: parent.verticalCenter
        text: root.text
        Accessible.ignored: true
    }

    ABSurface {
        id: buttons

        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        width: less.width + more.width
        height: ABMetric.target
        radius: ABMetric.controlRadius
        color: ABColor.control
        edge: ABColor.controlEdge
        edgePixels: ABAppearance.highContrast ? 2 : 1

        ABStepButton {
            id: less

            anchors.left: parent.left
            sign: -1
            enabled: root.value > root.from
            onClicked: root.move(-1)
        }

        ABDivider {
            anchors.horizontalCenter: parent.horizontalCenter
            upright: true
            y: 6
            height: parent.height - 12
        }

        ABStepButton {
            id: more

            anchors.right: parent.right
            sign: 1
            enabled: root.value < root.to
            onClicked: root.move(1)
        }
    }

    ABFocusRing { control: root }
}
