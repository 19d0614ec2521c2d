import QtQuick
import QtQuick.Layouts
import Ambrel.DesignSystem
import Ambrel.UI

/// What the program is, how it stays up to date, and its end.
Item {
    id: root

    required property AboutModel about
    required property UpdatesModel updates

    implicitHeight: column.implicitHeight + 48

    ColumnLayout {
        id: column

        anchors.fill: parent
        anchors.margins: 24
        spacing: 0

        Item {
            Layout.fillHeight: true
            Layout.preferredHeight: 20
        }
        ColumnLayout {
            Layout.fillWidth: true
            spacing: 10

            AmbrelIcon {
                Layout.alignment: Qt.AlignHCenter
                size: 96
            }
            ABText {
                Layout.fillWidth: true
                horizontalAlignment: Text.AlignHCenter
                style: ABFont.display
                text: qsTr("Ambrel")
            }
            ABText {
                Layout.fillWidth: true
                horizontalAlignment: Text.AlignHCenter
                style: ABFont.caption
                color: ABColor.textSecondary
                text: qsTr("Version %1").arg(root.about.version)
            }
            ABText {
                Layout.fillWidth: true
                horizontalAlignment: Text.AlignHCenter
                color: ABColor.textSecondary
                text: qsTr("Quits Mac apps when their last window closes.")
            }
            ABText {
                Layout.alignment: Qt.AlignHCenter
                visible: ABRenderConfig.isSnapshot
                color: ABColor.accent
                text: root.about.websiteName
            }
            ABPlainButton {
                Layout.alignment: Qt.AlignHCenter
                visible: !ABRenderConfig.isSnapshot
                color: ABColor.accent
                text: root.about.websiteName
                Accessible.role: Accessible.Link
                onClicked: root.about.openWebsite()

                HoverHandler {
                    cursorShape: Qt.PointingHandCursor
                }
            }
        }
        Gap {
            points: 20
        }
        UpdatesCard {
            Layout.fillWidth: true
            Layout.maximumWidth: 360
            Layout.alignment: Qt.AlignHCenter
            updates: root.updates
        }
        Item {
            Layout.fillHeight: true
            Layout.preferredHeight: 20
        }
        RowLayout {
            Layout.fillWidth: true
            spacing: 8

            Item {
                Layout.fillWidth: true
            }
            ABPlainButton {
                text: qsTr("Quit Ambrel")
                onClicked: root.about.quit()
            }
        }
    }
}
