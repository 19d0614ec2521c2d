import QtQuick
import QtQuick.Templates as T
import Ambrel.DesignSystem

/// A switch that shows `isOn` and nothing else: whoever owns the value hears `edited` and decides. The same in a picture,
/// but standing still.
T.AbstractButton {
    id: root

    property string label: ""
    property bool isOn: false
    signal edited(bool value)

    readonly property int trackWidth: 38
    readonly property int trackHeight: 22
    readonly property int knobInset: 2
    readonly property int knobSize: 18

    implicitWidth: trackWidth
    implicitHeight: ABMetric.target
    Accessible.role: Accessible.CheckBox
    Accessible.name: label
    Accessible.checkable: true
    Accessible.checked: isOn
    Accessible.onToggleAction: clicked()
    Keys.onReturnPressed: clicked()
    Keys.onEnterPressed: clicked()
    onClicked: edited(!isOn)

    ABSurface {
        id: track

        anchors.centerIn: parent
        width: root.trackWidth
        height: root.trackHeight
        // Not of the whole: the track would be seen through the knob.
        opacity: root.enabled ? 1 : 0.4
        radius: height / 2
        color: root.isOn ? ABColor.accent : ABColor.surfaceHover
        edge: ABColor.controlEdge
        edgePixels: ABRenderConfig.drawsPictures || root.isOn ? 0 : ABAppearance.highContrast ? 2 : 1

        Behavior on color {
            enabled: !ABRenderConfig.drawsPictures
            ABColorFade {
                motion: ABMotion.crossfade
            }
        }
    }

    ABKnob {
        readonly property real travel: root.trackWidth - 2 * root.knobInset - width

        anchors.verticalCenter: track.verticalCenter
        x: track.x + root.knobInset + travel * (root.mirrored ? 1 - place.value : place.value)
        size: root.knobSize
    }

    ABSpring {
        id: place

        motion: ABMotion.fast
        epsilon: 0.01
        target: root.isOn ? 1 : 0
    }

    ABFocusRing {
        control: root
        radius: ABMetric.target / 2
    }
}
