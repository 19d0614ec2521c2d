import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import Ambrel.DesignSystem
import Ambrel.UI

/// A sheet with the installed applications to pick one from, by pointer or by typing. A desktop entry that is not among
/// them is picked by its path.
T.Popup {
    id: root

    required property ApplicationChooser chooser

    signal picked(identifier: string)

    function add(): void {
        const identifier = chooser.identifierAt(list.currentIndex);
        if (identifier.length > 0) {
            close();
            picked(identifier);
        }
    }
    function move(step: int): void {
        list.currentIndex = Math.max(0, Math.min(list.count - 1, list.currentIndex + step));
    }

    parent: T.Overlay.overlay
    anchors.centerIn: parent
    width: Math.min(400, (parent?.width ?? 0) - 48)
    height: Math.min(460, (parent?.height ?? 0) - 48)
    padding: 16
    modal: true
    focus: true
    closePolicy: T.Popup.NoAutoClose
    onAboutToShow: {
        chooser.open();
        search.clear();
        list.currentIndex = 0;
        search.forceActiveFocus(Qt.PopupFocusReason);
    }
    onClosed: chooser.close()

    T.Overlay.modal: Rectangle {
        color: ABColor.scrim
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

    contentItem: FocusScope {
        focus: true
        LayoutMirroring.enabled: Application.layoutDirection === Qt.RightToLeft
        LayoutMirroring.childrenInherit: true
        Accessible.role: Accessible.Dialog
        Accessible.name: qsTr("Add Rule")
        Keys.onEscapePressed: root.close()

        ColumnLayout {
            anchors.fill: parent
            spacing: 12

            ABText {
                Layout.fillWidth: true
                style: ABFont.heading
                text: qsTr("Choose an application")
            }
            ABTextField {
                id: search

                Layout.fillWidth: true
                focus: true
                placeholderText: qsTr("Search, or type a path")
                onTextChanged: {
                    root.chooser.query = text;
                    list.currentIndex = 0;
                }
                Keys.onUpPressed: root.move(-1)
                Keys.onDownPressed: root.move(1)
                Keys.onReturnPressed: root.add()
                Keys.onEnterPressed: root.add()
            }
            ListView {
                id: list

                Layout.fillWidth: true
                Layout.fillHeight: true
                clip: true
                spacing: 2
                boundsBehavior: Flickable.StopAtBounds
                highlightMoveDuration: 0
                // A row that is being made ahead when a search takes it away is a warning of the toolkit's.
                cacheBuffer: 0
                model: root.chooser
                Accessible.role: Accessible.List
                Accessible.name: qsTr("Applications")
                T.ScrollBar.vertical: ABScrollBar {}

                delegate: RuleRow {
                    required property int index
                    required property string name
                    required property string identifier
                    required iconSource

                    width: ListView.view.width
                    text: name
                    subtitle: identifier
                    selected: ListView.isCurrentItem
                    focusPolicy: Qt.NoFocus
                    onClicked: list.currentIndex = index
                    onDoubleClicked: root.add()
                }

                ABText {
                    anchors.centerIn: parent
                    visible: list.count === 0
                    color: ABColor.textSecondary
                    text: qsTr("No application found")
                }
            }
            RowLayout {
                Layout.fillWidth: true
                spacing: 10

                Item {
                    Layout.fillWidth: true
                }
                ABGlassButton {
                    text: qsTr("Cancel")
                    onClicked: root.close()
                }
                ABGlassButton {
                    prominent: true
                    enabled: list.count > 0
                    text: qsTr("Add Rule")
                    onClicked: root.add()
                }
            }
        }
    }
}
