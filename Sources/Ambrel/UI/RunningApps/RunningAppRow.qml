import QtQuick
import QtQuick.Layouts
import Ambrel.DesignSystem

/// One running application: a row that is chosen as a whole, and on it the buttons that quit it or open more.
FocusScope {
    id: root

    required property int index
    required property int pid
    required property string name
    required property string identifier
    required property string icon
    required property bool isSelected
    property bool isCurrent: false
    readonly property bool takesTab: isCurrent || activeFocus

    /// The pointer or the keyboard has come to it.
    signal used
    signal toggled
    signal quit
    signal menuRequested(button: Item)

    implicitHeight: content.implicitHeight + 16 + divider.height
    // A row that waits for its next use would still be told to a screen reader.
    ListView.onPooled: visible = false
    ListView.onReused: visible = true
    Keys.onMenuPressed: menuRequested(more)
    Keys.onPressed: event => {
        if (event.key === Qt.Key_F10 && event.modifiers === Qt.ShiftModifier)
            menuRequested(more);
        else
            event.accepted = false;
    }

    ABRow {
        anchors.fill: parent
        anchors.bottomMargin: divider.height
        fillInset: 4
        focus: true
        focusPolicy: root.takesTab ? Qt.StrongFocus : Qt.ClickFocus
        text: root.name
        selected: root.isSelected
        selectionColor: ABColor.withAlpha(ABColor.accent, 0.16)
        Accessible.role: Accessible.ListItem
        Accessible.selectable: true
        Accessible.selected: root.isSelected
        Accessible.onPressAction: clicked()
        onActiveFocusChanged: if (activeFocus)
            root.used()
        onClicked: {
            root.used();
            root.toggled();
        }
    }
    RowLayout {
        id: content

        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: parent.top
        anchors.leftMargin: 16
        anchors.rightMargin: 16
        anchors.topMargin: 8
        spacing: 10

        Image {
            Layout.preferredWidth: 24
            Layout.preferredHeight: 24
            visible: root.icon.length > 0
            source: root.icon
            sourceSize.width: 24
            sourceSize.height: 24
            Accessible.ignored: true
        }
        LetterTile {
            visible: root.icon.length === 0
            name: root.name
        }
        ColumnLayout {
            Layout.fillWidth: true
            spacing: 0

            ABText {
                Layout.fillWidth: true
                text: root.name
                Accessible.ignored: true
            }
            ABText {
                Layout.fillWidth: true
                visible: text.length > 0
                text: root.identifier
                style: ABFont.mono
                color: ABColor.textTertiary
                wrapMode: Text.WrapAnywhere
                Accessible.ignored: true
            }
        }
        ABGlassButton {
            focusPolicy: root.takesTab ? Qt.StrongFocus : Qt.ClickFocus
            text: qsTr("Quit")
            Accessible.name: qsTr("Quit %1").arg(root.name)
            onClicked: root.quit()
        }
        ABPlainButton {
            id: more

            Layout.preferredWidth: Math.max(28, implicitWidth)
            focusPolicy: root.takesTab ? Qt.StrongFocus : Qt.ClickFocus
            symbol: "ellipsis"
            color: ABColor.textSecondary
            Accessible.role: Accessible.ButtonMenu
            Accessible.name: qsTr("More for %1").arg(root.name)
            onClicked: root.menuRequested(more)
        }
    }
    ABDivider {
        id: divider

        anchors.left: parent.left
        anchors.right: parent.right
        anchors.bottom: parent.bottom
        anchors.leftMargin: 50
    }
}
