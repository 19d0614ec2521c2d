import QtQuick
import QtQuick.Templates as T
import Ambrel.DesignSystem

/// One line of text to type into, with a way to empty it.
T.TextField {
    id: root

    readonly property bool mirrored: LayoutMirroring.enabled
    readonly property real textScale: ABDynamicType.scale
    readonly property real clearRoom: length > 0 ? ABMetric.target : 8

    implicitWidth: 200
    implicitHeight: Math.max(ABMetric.target, ABFont.lineHeight(ABFont.body, textScale) + 8)
    leftPadding: mirrored ? clearRoom : 8
    rightPadding: mirrored ? 8 : clearRoom
    verticalAlignment: Text.AlignVCenter
    font: ABFont.font(ABFont.body, textScale)
    color: ABColor.textPrimary
    placeholderTextColor: ABColor.textSecondary
    selectionColor: ABColor.accentFill
    selectedTextColor: ABColor.accentText
    renderType: Text.NativeRendering
    selectByMouse: true
    opacity: enabled ? 1 : 0.4
    Accessible.role: Accessible.EditableText
    Accessible.name: placeholderText

    background: ABSurface {
        radius: ABMetric.controlRadius
        color: ABColor.contentBg
        edge: root.activeFocus ? ABColor.withAlpha(ABColor.accent, 0.6) : ABColor.controlEdge
        edgePixels: ABAppearance.highContrast ? 2 : 1
    }

    ABText {
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.leftMargin: 8
        anchors.rightMargin: 8
        anchors.verticalCenter: parent.verticalCenter
        visible: root.length === 0 && root.preeditText.length === 0
        text: root.placeholderText
        color: root.placeholderTextColor
        wrapMode: Text.NoWrap
        elide: Text.ElideRight
        Accessible.ignored: true
    }

    ABPlainButton {
        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        visible: root.length > 0
        focusPolicy: Qt.NoFocus
        symbol: "xmark.circle.fill"
        color: ABColor.textSecondary
        background: null
        Accessible.name: qsTr("Clear")
        onClicked: root.clear()
    }

    Rectangle {
        anchors.fill: parent
        anchors.margins: -ABMetric.focusRing
        visible: root.activeFocus
        color: "transparent"
        radius: ABMetric.controlRadius + ABMetric.focusRing
        border.width: ABMetric.focusRing
        border.color: ABColor.withAlpha(ABColor.accent, 0.6)
    }
}
