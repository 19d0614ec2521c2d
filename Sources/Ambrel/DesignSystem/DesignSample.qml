import QtQuick
import Ambrel.DesignSystem

/// One page with all of the design together: colours, text styles, surfaces, controls.
Rectangle {
    id: root

    implicitWidth: 640
    implicitHeight: page.implicitHeight + 48
    color: ABColor.windowBg

    component Swatch: Column {
        id: swatch

        property color color
        property string name

        width: Math.max(68, label.implicitWidth)
        spacing: 4
        bottomPadding: 6

        ABSurface {
            width: parent.width
            height: 36
            radius: ABMetric.controlRadius
            color: swatch.color
            edge: ABColor.divider
            edgePixels: 1
        }

        ABText {
            id: label

            anchors.horizontalCenter: parent.horizontalCenter
            text: swatch.name
            style: ABFont.caption
            color: ABColor.textSecondary
        }
    }

    Column {
        id: page

        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: parent.top
        anchors.margins: 24
        spacing: 20

        Flow {
            width: parent.width
            spacing: 6

            Swatch { name: "accent"; color: ABColor.accent }
            Swatch { name: "muted"; color: ABColor.accentMuted }
            Swatch { name: "error"; color: ABColor.error }
            Swatch { name: "success"; color: ABColor.success }
            Swatch { name: "warning"; color: ABColor.warning }
            Swatch { name: "primary"; color: ABColor.textPrimary }
            Swatch { name: "secondary"; color: ABColor.textSecondary }
            Swatch { name: "tertiary"; color: ABColor.textTertiary }
            Swatch { name: "window"; color: ABColor.windowBg }
            Swatch { name: "content"; color: ABColor.contentBg }
            Swatch { name: "hover"; color: ABColor.surfaceHover }
            Swatch { name: "divider"; color: ABColor.divider }
            Swatch { name: "active"; color: ABColor.stateActive }
            Swatch { name: "paused"; color: ABColor.statePaused }
            Swatch { name: "material"; color: ABColor.material }
            Swatch { name: "control"; color: ABColor.control }
        }

        ABDivider { width: parent.width }

        Row {
            width: parent.width
            spacing: 24

            Column {
                width: (parent.width - parent.spacing) / 2
                spacing: 8

                ABText { text: "hero"; style: ABFont.hero }
                ABText { text: "display"; style: ABFont.display }
                ABText { text: "heading"; style: ABFont.heading }
                SectionTitle { text: "title" }
                ABText { text: "body" }
                ABText { text: "bodyMedium"; style: ABFont.bodyMedium }
                ABText { text: "caption"; style: ABFont.caption; color: ABColor.textSecondary }
                ABText { text: "mono"; style: ABFont.mono; color: ABColor.textSecondary }
            }

            Column {
                width: (parent.width - parent.spacing) / 2
                spacing: 12

                Repeater {
                    model: ["regular", "interactive", "prominent"]

                    ABGlass {
                        id: glass

                        required property string modelData
                        required property int index

                        width: parent.width
                        height: 52
                        style: index

                        ABText {
                            anchors.centerIn: parent
                            text: glass.modelData
                            color: glass.index === ABGlass.Prominent ? ABColor.accentText : ABColor.textPrimary
                        }
                    }
                }

                Flow {
                    width: parent.width
                    spacing: 8

                    ABGlassButton { text: "Cancel" }
                    ABGlassButton { text: "Quit All"; prominent: true }
                    ABPlainButton { text: "Refresh"; symbol: "arrow.clockwise" }
                }
            }
        }

        ABCard {
            width: parent.width

            Column {
                spacing: 14

                SectionTitle { text: "Controls" }

                SettingRow {
                    width: parent.width
                    title: "A switch that is on"
                    description: "The title stands level with its control, and the description wraps under it for as long as it has to."

                    ABToggle { label: "on"; isOn: true; onEdited: value => isOn = value }
                }

                SettingRow {
                    width: parent.width
                    title: "A switch that is off"

                    ABToggle { label: "off"; onEdited: value => isOn = value }
                }

                SettingRow {
                    width: parent.width
                    title: "A slider"
                    description: "In steps of a tenth."

                    Row {
                        spacing: 8

                        ABFigures {
                            anchors.verticalCenter: parent.verticalCenter
                            text: slider.value.toFixed(1) + "s"
                        }

                        ABSlider { id: slider; anchors.verticalCenter: parent.verticalCenter; label: "slider"; width: 150; from: 0; to: 5; stepSize: 0.1; value: 1.5 }
                    }
                }

                ABDivider { width: parent.width }

                ABPicker { options: ["None", "Hide", "Quit"]; currentIndex: 1; onPicked: index => currentIndex = index }
                ABStepper { width: 240; value: 30; from: 5; to: 120; stepSize: 5; text: "After " + value + " minutes"; onEdited: next => value = next }
                ABCheckBox { text: "A box with words"; isOn: true; onEdited: value => isOn = value }
                ABTextField { width: 240; placeholderText: "Search" }
            }
        }
    }
}
