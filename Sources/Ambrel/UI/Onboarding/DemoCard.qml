import QtQuick
import QtQuick.Layouts
import Ambrel.DesignSystem

/// How far the demo has come.
ABCardSurface {
    id: root

    required property int demo
    /// Said by a screen reader when it comes.
    required property string announcement

    readonly property var faces: [
        { symbol: "arrow.down.right.circle", color: ABColor.textSecondary, title: qsTr("Waiting for TextEdit…"), subtitle: qsTr("Open TextEdit to try the live demo.") },
        { symbol: "macwindow.badge.minus", color: ABColor.textSecondary, title: qsTr("TextEdit is open"), subtitle: qsTr("Now close its last window.") },
        { symbol: "checkmark.seal.fill", color: ABColor.success, title: qsTr("Ambrel quit TextEdit for you."), subtitle: qsTr("That's the whole app. You're ready.") }
    ]

    Item {
        Accessible.role: Accessible.AlertMessage
        Accessible.name: root.announcement
        Accessible.ignored: root.announcement.length === 0
        visible: root.announcement.length > 0
    }

    RowLayout {
        anchors.fill: parent
        anchors.leftMargin: 18
        anchors.rightMargin: 18
        spacing: 12

        Item {
            Layout.preferredWidth: 30
            Layout.preferredHeight: 30

            Repeater {
                model: root.faces

                ABSymbol {
                    id: sign

                    required property int index
                    required property var modelData

                    anchors.fill: parent
                    name: modelData.symbol
                    size: 24
                    color: modelData.color
                    opacity: Math.min(1, presence.value)
                    scale: ABAppearance.reducedMotion ? 1 : 0.5 + presence.value / 2

                    ABSpring {
                        id: presence

                        motion: ABMotion.standard
                        epsilon: 0.002
                        fades: true
                        target: sign.index === root.demo ? 1 : 0
                    }
                }
            }
        }
        ColumnLayout {
            Layout.fillWidth: true
            spacing: 2

            ABText {
                Layout.fillWidth: true
                text: root.faces[root.demo].title
                style: ABFont.bodyMedium
            }
            ABText {
                Layout.fillWidth: true
                text: root.faces[root.demo].subtitle
                style: ABFont.caption
                color: ABColor.textSecondary
            }
        }
    }
}
