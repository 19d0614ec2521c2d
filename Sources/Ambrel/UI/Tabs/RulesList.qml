import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import Ambrel.DesignSystem
import Ambrel.UI

/// The rules to choose from, a search among them, and the way to add one.
FocusScope {
    id: root

    required property RulesModel rules

    signal addApp

    function move(step: int): void {
        rules.selectNeighbour(step);
        list.positionViewAtIndex(rules.selectedIndex, ListView.Contain);
        list.itemAtIndex(rules.selectedIndex)?.forceActiveFocus(Qt.TabFocusReason);
    }

    // A rule that was added may have its place out of sight.
    Connections {
        target: root.rules

        function onSelectionChanged(): void {
            list.forceLayout();
            list.positionViewAtIndex(root.rules.selectedIndex, ListView.Contain);
        }
    }

    ColumnLayout {
        anchors.fill: parent
        spacing: 8

        ABTextField {
            id: search

            Layout.fillWidth: true
            Layout.margins: 12
            Layout.bottomMargin: 0
            placeholderText: qsTr("Search")
            onTextEdited: root.rules.query = text
            onTextChanged: if (text.length === 0)
                root.rules.query = text
            Keys.onDownPressed: root.move(root.rules.selectedIndex < 0 ? 1 : 0)
        }
        ListView {
            id: list

            Layout.fillWidth: true
            Layout.fillHeight: true
            leftMargin: 12
            rightMargin: 12
            clip: true
            spacing: 2
            boundsBehavior: Flickable.StopAtBounds
            keyNavigationEnabled: false
            currentIndex: root.rules.selectedIndex
            highlightFollowsCurrentItem: false
            // A row that is being made ahead when a search takes it away is a warning of the toolkit's.
            cacheBuffer: 0
            model: root.rules
            Accessible.role: Accessible.List
            Accessible.name: qsTr("App Rules")
            T.ScrollBar.vertical: ABScrollBar {}

            delegate: RuleRow {
                required property int index
                required property string rowId
                required property string name
                required subtitle
                required iconSource
                required locked
                required active

                width: ListView.view.width - 24
                text: name
                selected: rowId === root.rules.selection
                focusPolicy: selected || activeFocus || (root.rules.selectedIndex < 0 && index === 0) ? Qt.StrongFocus : Qt.NoFocus
                onClicked: root.rules.selection = rowId
                Keys.onUpPressed: root.move(-1)
                Keys.onDownPressed: root.move(1)
            }
        }
        ABPlainButton {
            Layout.margins: 12
            Layout.topMargin: 0
            text: qsTr("Add App…")
            symbol: "plus"
            style: ABFont.caption
            onClicked: root.addApp()
        }
    }
}
