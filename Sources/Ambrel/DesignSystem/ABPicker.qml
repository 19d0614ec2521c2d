import QtQuick
import QtQuick.Templates as T
import Ambrel.DesignSystem

/// One of a few, side by side. It shows `currentIndex` and nothing else: `picked` asks for another one. The arrow keys ask
/// for the neighbour.
T.Control {
    id: root

    property string label: ""
    property var options: []
    property int currentIndex: 0
    signal picked(int index)

    readonly property int inset: 2

    implicitWidth: 240
    implicitHeight: Math.max(measure.implicitHeight + 8, ABMetric.target)
    focusPolicy: Qt.StrongFocus
    opacity: enabled ? 1 : 0.4
    Accessible.role: Accessible.PageTabList
    Accessible.name: label
    Keys.onLeftPressed: step(mirrored ? 1 : -1)
    Keys.onRightPressed: step(mirrored ? -1 : 1)

    function step(by: int) {
        const next = currentIndex + by;
        if (next >= 0 && next < options.length)
            picked(next);
    }

    background: ABSurface {
        radius: ABMetric.controlRadius
        color: ABColor.surfaceHover
    }

    ABSurface {
        readonly property int places: Math.max(1, root.options.length)

        x: Math.round((root.mirrored ? places - 1 - place.value : place.value) * root.width / places) + root.inset
        y: root.inset
        width: root.width / places - 2 * root.inset
        height: root.height - 2 * root.inset
        visible: root.currentIndex >= 0 && root.currentIndex < root.options.length
        radius: ABMetric.controlRadius - root.inset
        color: ABColor.raised
        edge: ABColor.controlEdge
        edgePixels: ABAppearance.highContrast ? 2 : 1
    }

    ABSpring {
        id: place

        motion: ABMotion.fast
        epsilon: 0.005
        target: root.currentIndex
    }

    Row {
        // The components of this Qt are not bound to the file they stand in.
        // qmllint disable unqualified
        Repeater {
            model: root.options

            T.AbstractButton {
                id: segment

                required property int index
                required property string modelData
                readonly property bool isCurrent: index === root.currentIndex

                width: root.width / root.options.length
                height: root.height
                topPadding: 4
                bottomPadding: 4
                focusPolicy: Qt.NoFocus
                text: modelData
                Accessible.role: Accessible.RadioButton
                Accessible.name: modelData
                Accessible.checkable: true
                Accessible.checked: isCurrent
                onClicked: root.picked(index)

                contentItem: ABText {
                    text: segment.modelData
                    style: segment.isCurrent ? ABFont.bodyMedium : ABFont.body
                    horizontalAlignment: Text.AlignHCenter
                    verticalAlignment: Text.AlignVCenter
                    Accessible.ignored: true
                }
            }
        }
        // qmllint enable unqualified
    }

    ABText {
        id: measure

        visible: false
        text: "Xg"
    }

    ABFocusRing { control: root }
}
