import QtQuick
import QtQuick.Templates as T
import Ambrel.DesignSystem

/// A slider over `from` to `to` in steps of `stepSize`. It shows `value`, and tells of each step that the user takes.
T.Slider {
    id: root

    property string label: ""
    signal edited(real value)

    readonly property int knobSize: 18
    readonly property int trackHeight: 4

    implicitWidth: 150
    implicitHeight: ABRenderConfig.drawsPictures ? 20 : ABMetric.target
    snapMode: T.Slider.SnapAlways
    Accessible.role: Accessible.Slider
    Accessible.name: label
    onMoved: edited(stepped(value))

    /// The step that is meant, without what binary fractions add to it.
    function stepped(wanted: real): real {
        const step = stepSize > 0 ? from + Math.round((wanted - from) / stepSize) * stepSize : wanted;
        return Number(step.toFixed(6));
    }

    background: Item {
        // Not of the whole: the track would be seen through the knob.
        opacity: root.enabled ? 1 : 0.4

        ABSurface {
            anchors.verticalCenter: parent.verticalCenter
            width: parent.width
            height: root.trackHeight
            radius: height / 2
            color: ABRenderConfig.drawsPictures ? ABColor.surfaceHover : ABColor.over(ABColor.control, ABColor.surfaceHover)
        }

        ABSurface {
            anchors.left: parent.left
            anchors.verticalCenter: parent.verticalCenter
            visible: !ABRenderConfig.drawsPictures
            width: root.position * (parent.width - root.knobSize) + root.knobSize / 2
            height: root.trackHeight
            radius: height / 2
            color: ABColor.accent
        }
    }

    handle: ABKnob {
        x: root.visualPosition * (root.width - root.knobSize)
        anchors.verticalCenter: parent?.verticalCenter
        size: root.knobSize
    }

    ABFocusRing {
        control: root
        radius: ABMetric.target / 2
    }
}
