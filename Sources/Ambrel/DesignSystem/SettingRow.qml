import QtQuick
import Ambrel.DesignSystem

/// What a setting is called and what it does, and its control on the far side, level with the first line.
Item {
    id: root

    property string title: ""
    property string description: ""
    default property alias control: holder.data

    readonly property real gap: 16 + 20 + 16
    /// The taller of the first line and the control sets the line on which both stand.
    readonly property real level: Math.max(name.lineHeight, holder.height) / 2

    implicitWidth: Math.max(name.implicitWidth, about.implicitWidth) + gap + holder.width
    implicitHeight: Math.max(ABMetric.target, words.y + words.height, holder.y + holder.height)

    Column {
        id: words

        anchors.left: parent.left
        anchors.right: holder.left
        anchors.rightMargin: root.gap
        y: Math.round(root.level - name.lineHeight / 2)
        spacing: 4

        ABText {
            id: name

            width: parent.width
            text: root.title
        }

        ABText {
            id: about

            width: parent.width
            visible: text.length > 0
            text: root.description
            style: ABFont.caption
            color: ABColor.textSecondary
        }
    }

    Item {
        id: holder

        anchors.right: parent.right
        y: Math.round(root.level - height / 2)
        width: childrenRect.width
        height: childrenRect.height
    }
}
