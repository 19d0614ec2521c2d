import QtQuick
import Ambrel.DesignSystem

/// Shows one component at a time, and fades from the one before to it; to a new one of the same when `identity` changes.
FocusScope {
    id: root

    property Component sourceComponent
    property var identity
    /// Milliseconds before the fade begins.
    property int delay: 0
    property int duration: ABMotion.crossfade.duration
    readonly property int time: ABAppearance.reducedMotion ? Math.min(duration, 120) : duration
    readonly property Item item: front.item as Item
    property Loader front: first
    property Loader back: second

    function dropLeaving(): void {
        back.sourceComponent = null;
    }

    onSourceComponentChanged: {
        if (front.sourceComponent === null)
            front.sourceComponent = sourceComponent;
        else
            exchange();
    }
    onIdentityChanged: if (front.sourceComponent !== null)
        exchange()

    function exchange(): void {
        fade.complete();
        const leaving = front;
        front = back;
        back = leaving;
        front.sourceComponent = sourceComponent;
        fade.restart();
        // A picture may be drawn before time has passed.
        if (ABRenderConfig.drawsPictures)
            fade.complete();
    }

    Loader {
        id: first

        anchors.fill: parent
        z: root.front === first ? 1 : 0
        focus: root.front === first
    }
    Loader {
        id: second

        anchors.fill: parent
        z: root.front === second ? 1 : 0
        focus: root.front === second
    }

    SequentialAnimation {
        id: fade

        PropertyAction {
            target: root.front
            property: "opacity"
            value: 0
        }
        PauseAnimation {
            duration: root.delay
        }
        ParallelAnimation {
            ABFade {
                target: root.front
                property: "opacity"
                to: 1
                duration: root.time
            }
            ABFade {
                target: root.back
                property: "opacity"
                to: 0
                duration: root.time
            }
        }
        ScriptAction {
            script: root.dropLeaving()
        }
    }
}
