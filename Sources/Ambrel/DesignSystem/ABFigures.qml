import QtQuick
import Ambrel.DesignSystem

/// A text whose figures are all as wide, for a number that changes where it stands.
Item {
    id: root

    property string text: ""
    property abTextStyle style: ABFont.body
    property color color: ABColor.textPrimary

    implicitWidth: row.implicitWidth
    implicitHeight: row.implicitHeight
    Accessible.role: Accessible.StaticText
    Accessible.name: text

    ABText {
        id: widest

        visible: false
        text: "0"
        style: root.style
    }

    Row {
        id: row

        // Numbers are read from the left everywhere.
        LayoutMirroring.enabled: false

        // The components of this Qt are not bound to the file they stand in.
        // qmllint disable unqualified
        Repeater {
            model: root.text.split("")

            ABText {
                required property string modelData

                width: /\d/.test(modelData) ? widest.implicitWidth : implicitWidth
                text: modelData
                style: root.style
                color: root.color
                wrapMode: Text.NoWrap
                horizontalAlignment: Text.AlignHCenter
                Accessible.ignored: true
            }
        }
        // qmllint enable unqualified
    }
}
