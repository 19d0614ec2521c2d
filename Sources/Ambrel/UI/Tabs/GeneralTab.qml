import QtQuick
import QtQuick.Layouts
import Ambrel.DesignSystem
import Ambrel.UI

/// The settings of the whole program.
Item {
    id: root

    required property SettingsModel settings
    required property EngineModel engine
    required property AppearanceGuard appearance
    required property HotKeySwitch hotKey
    required property LoginSwitch login
    readonly property bool onScreen: Window.visibility !== Window.Hidden

    implicitHeight: column.implicitHeight + 48
    onOnScreenChanged: if (onScreen) login.refresh()

    ColumnLayout {
        id: column

        anchors.left: parent.left
        anchors.leftMargin: 24
        y: 24
        width: Math.min(560, parent.width - 48)
        spacing: 20

        StatusBlock {
            Layout.fillWidth: true
            settings: root.settings
            engine: root.engine
        }
        ABCard {
            Layout.fillWidth: true

            ColumnLayout {
                spacing: 28

                SettingGroup {
                    title: qsTr("Behavior")

                    SimpleSettingRow {
                        Layout.fillWidth: true
                        title: qsTr("Auto-quit on close")
                        description: qsTr("Quits apps when their last window closes.")
                        isOn: !root.settings.isPaused
                        onEdited: value => root.settings.isPaused = !value
                    }
                    SimpleSettingRow {
                        Layout.fillWidth: true
                        title: qsTr("Quit only after the last window closes")
                        description: qsTr("On (recommended): keep the app open until you close its final window. Off: quit as soon as one window is left.")
                        isOn: root.settings.quitOnlyWhenOneWindowLeft
                        onEdited: value => root.settings.quitOnlyWhenOneWindowLeft = value
                    }
                    SimpleSettingRow {
                        Layout.fillWidth: true
                        title: qsTr("Notify when Ambrel quits an app")
                        description: qsTr("Quiet notification with a Reopen button — an accidental quit is a one-click undo.")
                        isOn: root.settings.notifyOnQuit
                        onEdited: value => root.settings.notifyOnQuit = value
                    }
                    SimpleSettingRow {
                        Layout.fillWidth: true
                        title: qsTr("Keep apps that are busy for you")
                        description: qsTr("An app that plays, or that keeps the computer awake, isn't quit until it stops.")
                        isOn: root.settings.keepBusyApps
                        onEdited: value => root.settings.keepBusyApps = value
                    }
                    SettingRow {
                        Layout.fillWidth: true
                        title: qsTr("Quit delay")
                        description: qsTr("How long to wait after the last window closes.")

                        RowLayout {
                            spacing: 8

                            ABFigures {
                                text: qsTr("%1s").arg(root.settings.quitDelay.toFixed(1))
                                color: ABColor.textSecondary
                            }
                            ABSlider {
                                Layout.preferredWidth: 150
                                label: qsTr("Quit delay")
                                from: 0
                                to: 5
                                stepSize: 0.1
                                value: root.settings.quitDelay
                                onEdited: value => root.settings.quitDelay = value
                            }
                        }
                    }
                }
                SettingGroup {
                    title: qsTr("Quit All")

                    SimpleSettingRow {
                        Layout.fillWidth: true
                        title: qsTr("Global hotkey (⌘⌥⇧Q)")
                        description: qsTr("Quit every running app from anywhere. (⌘⇧Q is reserved by macOS.)")
                        label: qsTr("Global hotkey for Quit All")
                        isOn: root.settings.quitAllHotKeyEnabled
                        onEdited: value => root.hotKey.set(value)
                    }
                    SimpleSettingRow {
                        Layout.fillWidth: true
                        title: qsTr("Confirm before Quit All")
                        description: qsTr("Ask before quitting everything, so it's never an accident.")
                        isOn: root.settings.confirmBeforeQuitAll
                        onEdited: value => root.settings.confirmBeforeQuitAll = value
                    }
                }
                SettingGroup {
                    title: qsTr("Startup")

                    SimpleSettingRow {
                        Layout.fillWidth: true
                        title: qsTr("Launch at Login")
                        description: qsTr("Start Ambrel automatically when you log in.")
                        isOn: root.login.isEnabled
                        onEdited: value => root.login.set(value)
                    }
                }
                SettingGroup {
                    title: qsTr("Appearance")

                    SimpleSettingRow {
                        Layout.fillWidth: true
                        title: qsTr("Show Dock icon")
                        description: qsTr("Keep a Ambrel icon in the Dock. Off by default — Ambrel runs from the menu bar.")
                        isOn: root.settings.showDockIcon
                        onEdited: value => root.appearance.setShowDockIcon(value)
                    }
                    SimpleSettingRow {
                        Layout.fillWidth: true
                        title: qsTr("Hide menu bar icon")
                        description: qsTr("Run Ambrel silently. To open Settings later, double-click Ambrel in Applications, open it from Spotlight, or enable the Dock icon above.")
                        isOn: root.settings.hideMenuBarIcon
                        onEdited: value => root.appearance.setHideMenuBarIcon(value)
                    }
                }
            }
        }
    }

    ABAlert {
        visible: root.appearance.asksToHideMenuBar
        title: qsTr("Hide menu bar icon?")
        message: qsTr("Ambrel will run invisibly. To open Settings again, double-click Ambrel in your Applications folder or open it from Spotlight.")
        confirmText: qsTr("Hide Icon")
        onConfirmed: root.appearance.accept()
        onCancelled: root.appearance.cancel()
    }
    ABAlert {
        visible: root.appearance.asksToHideDock
        title: qsTr("Hide the Dock icon too?")
        message: qsTr("The menu bar icon is already hidden, so Ambrel will have no icon anywhere. To open Settings again, double-click Ambrel in your Applications folder or open it from Spotlight.")
        confirmText: qsTr("Hide Dock Icon")
        onConfirmed: root.appearance.accept()
        onCancelled: root.appearance.cancel()
    }
}
