import QtQuick
import QtQuick.Templates as T
import Ambrel.DesignSystem

/// A few commands that open on top of the window, each an ABMenuItem. Arrow keys and the pointer choose, Escape and a
/// click elsewhere let it be.
T.Menu {
    id: root

    /// What had the keyboard before, and gets it back.
    property var before: null
    readonly property real widestItem: {
        let widest = 0;
        for (let index = 0; index < count; ++index)
            widest = Math.max(widest, itemAt(index).implicitWidth);
        return widest;
    }

    /// Opens under `button`, level with its far side.
    function openUnder(button: Item): void {
        popup(button, mirrored ? 0 : button.width - width, button.height);
        currentIndex = 0;
    }

    implicitWidth: Math.max(160, widestItem + leftPadding + rightPadding)
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    margins: 8
    padding: 4
    modal: true
    dim: false
    closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutside
    onAboutToShow: before = parent.Window.activeFocusItem
    onClosed: before?.forceActiveFocus(before.focusReason ?? Qt.PopupFocusReason)

    contentItem: ListView {
        LayoutMirroring.enabled: Application.layoutDirection === Qt.RightToLeft
        LayoutMirroring.childrenInherit: true
        implicitHeight: contentHeight
        model: root.contentModel
        currentIndex: root.currentIndex
        interactive: contentHeight > height
        clip: true
    }

    background: Item {
        ABShadow {
            anchors.fill: parent
            anchors.topMargin: 2
            anchors.bottomMargin: -2
            cornerRadius: ABMetric.cardRadius
            blur: 12
            color: ABColor.shadow
        }

        ABSurface {
            anchors.fill: parent
            radius: ABMetric.cardRadius
            color: ABColor.over(ABColor.windowBg, ABColor.material)
            edge: ABColor.controlEdge
            edgePixels: ABAppearance.highContrast ? 2 : 1
        }
    }

    enter: Transition {
        ABFade {
            property: "opacity"
            from: 0
            to: 1
            motion: ABMotion.hover
        }
    }
}
