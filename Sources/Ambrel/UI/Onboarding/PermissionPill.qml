import QtQuick
import Ambrel.DesignSystem

/// Whether the permission is still to be asked for, or waited for.
ABCardSurface {
    id: root

    required property bool isWaiting

    Crossfade {
        anchors.fill: parent
        anchors.leftMargin: 16
        anchors.rightMargin: 16
        sourceComponent: root.isWaiting ? waiting : needed
    }

    Component {
        id: needed

        PermissionLine {
            symbol: "lock.shield"
            symbolColor: ABColor.textSecondary
            title: qsTr("Needs Accessibility access")
            subtitle: qsTr("To detect when windows close")
        }
    }
    Component {
        id: waiting

        PermissionLine {
            symbol: "hourglass"
            symbolColor: ABColor.accent
            title: qsTr("Waiting for permission…")
            subtitle: qsTr("Grant it in System Settings")

            PulsingDot {}
        }
    }
}
