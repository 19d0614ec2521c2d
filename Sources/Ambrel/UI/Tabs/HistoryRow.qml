import QtQuick
import Ambrel.DesignSystem

/// One decision, read out as one.
Item {
    id: root

    required property int index
    required property string symbol
    required property string title
    required property string subtitle
    required property string when
    required property bool skipped

    implicitHeight: words.height + 16
    Accessible.role: Accessible.ListItem
    Accessible.name: title + ", " + subtitle + (when.length > 0 ? ", " + when : "")

    ABDivider {
        width: parent.width
        visible: root.index > 0
    }
    ABSymbol {
        id: sign

        anchors.left: parent.left
        anchors.verticalCenter: parent.verticalCenter
        width: 20
        height: 20
        size: 14
        name: root.symbol
        color: root.skipped ? ABColor.success : ABColor.textSecondary
    }
    Column {
        id: words

        anchors.left: sign.right
        anchors.right: time.left
        anchors.leftMargin: 12
        anchors.rightMargin: 12
        anchors.verticalCenter: parent.verticalCenter
        spacing: 2

        ABText {
            width: parent.width
            wrapMode: Text.WrapAtWordBoundaryOrAnywhere
            text: root.title
            Accessible.ignored: true
        }
        ABText {
            width: parent.width
            wrapMode: Text.WrapAtWordBoundaryOrAnywhere
            style: ABFont.caption
            color: ABColor.textSecondary
            text: root.subtitle
            Accessible.ignored: true
        }
    }
    ABText {
        id: time

        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        style: ABFont.caption
        color: ABColor.textTertiary
        wrapMode: Text.NoWrap
        text: root.when
        Accessible.ignored: true
    }
}
