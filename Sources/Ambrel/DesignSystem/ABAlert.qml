import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import Ambrel.DesignSystem

/// A question over the whole window in which it stands, whatever it stands in there: all else is dimmed and out of reach
/// of pointer and keyboard until it is answered.
///
///     ABAlert {
///         id: removal
///
///         title: qsTr("Remove this rule?")
///         message: qsTr("…")              // may be left out
///         confirmText: qsTr("Remove")
///         destructive: true
///         onConfirmed: root.rules.remove()
///     }
///
/// It is asked by `removal.open()`, or by binding `visible` to a state, which both answers have to clear then. Either
/// `confirmed` or `cancelled` follows, when it has begun to close. Escape cancels. Return confirms, or cancels what is
/// destructive, until Tab has gone to the other button.
T.Popup {
    id: root

    property string title: ""
    property string message: ""
    property string confirmText: ""
    property string cancelText: qsTr("Cancel")
    property bool destructive: false

    signal confirmed
    signal cancelled

    function confirm(): void {
        close();
        confirmed();
    }
    function cancel(): void {
        close();
        cancelled();
    }

    parent: T.Overlay.overlay
    anchors.centerIn: parent
    width: Math.min(Math.round(340 * panel.textScale), (parent?.width ?? 0) - 48)
    implicitHeight: panel.implicitHeight + topPadding + bottomPadding
    padding: 20
    modal: true
    focus: true
    closePolicy: T.Popup.NoAutoClose
    onAboutToShow: (destructive ? no : yes).focus = true

    T.Overlay.modal: Rectangle {
        color: ABColor.scrim

        Behavior on opacity {
            ABFade {}
        }
    }

    enter: Transition {
        ABFade {
            property: "opacity"
            from: 0
            to: 1
        }
    }
    exit: Transition {
        ABFade {
            property: "opacity"
            to: 0
        }
    }

    background: ABShadow {
        blur: 24
        color: ABColor.shadow
        cornerRadius: ABMetric.panelRadius

        ABGlass {
            anchors.fill: parent
            color: ABColor.windowBg
        }
    }

    FocusScope {
        id: panel

        readonly property real textScale: ABDynamicType.scale

        width: root.availableWidth
        height: implicitHeight
        implicitHeight: column.implicitHeight
        focus: true
        LayoutMirroring.enabled: Application.layoutDirection === Qt.RightToLeft
        LayoutMirroring.childrenInherit: true
        Accessible.role: Accessible.AlertMessage
        Accessible.name: root.title
        Accessible.description: root.message
        Keys.onEscapePressed: root.cancel()

        ColumnLayout {
            id: column

            width: parent.width
            spacing: 8

            ABText {
                Layout.fillWidth: true
                style: ABFont.heading
                text: root.title
            }
            ABText {
                Layout.fillWidth: true
                visible: text.length > 0
                color: ABColor.textSecondary
                text: root.message
            }
            RowLayout {
                Layout.fillWidth: true
                Layout.topMargin: 12
                spacing: 10

                Item {
                    Layout.fillWidth: true
                }
                ABGlassButton {
                    id: no

                    text: root.cancelText
                    onClicked: root.cancel()
                }
                ABGlassButton {
                    id: yes

                    prominent: !root.destructive
                    destructive: root.destructive
                    text: root.confirmText
                    onClicked: root.confirm()
                }
            }
        }
    }
}
