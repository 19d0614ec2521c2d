import QtQuick

/// Holds pieces of glass that belong together, and takes their size. Without glass they are drawn as they are.
Item {
    default property alias content: holder.data
    /// How near to each other they would flow together.
    property real spacing: 0

    implicitWidth: holder.childrenRect.width
    implicitHeight: holder.childrenRect.height

    Item {
        id: holder

        anchors.fill: parent
    }
}
