"""Real applications that go to real trays: by a StatusNotifierItem where there is a watcher, by XEmbed where there is
none."""
import collections
import json
import os
import pathlib
import subprocess

import Xlib.X
import Xlib.display

import desktop_test
import windows
from desktop_test import DesktopTest
from programs import wait_until

Application = collections.namedtuple("Application", "command bundle wm_class file settings")

KEEPASSXC = Application("keepassxc", "org.keepassxc.keepassxc", "keepassxc.keepassxc", "keepassxc/keepassxc.ini",
                        """[General]
ConfigVersion=2
UpdateCheckMessageShown=true
[GUI]
MinimizeOnClose=true
MinimizeToTray=true
ShowTrayIcon=true
CheckForUpdates=false
""")
TRANSMISSION = Application("transmission-gtk", "transmission-gtk", "transmission-gtk.transmission-gtk",
                           "transmission/settings.json", json.dumps({
                               "show-notification-area-icon": True, "user-has-given-informed-consent": True,
                               "dht-enabled": False, "lpd-enabled": False, "utp-enabled": False,
                               "port-forwarding-enabled": False, "bind-address-ipv4": "127.0.0.1",
                               "bind-address-ipv6": "::1"}))


class TrayApplications(DesktopTest):
    def start_trayer(self):
        self.start("trayer")
        display = Xlib.display.Display()
        self.addCleanup(display.close)
        selection = display.intern_atom("_NET_SYSTEM_TRAY_S0")
        wait_until(lambda: display.get_selection_owner(selection) != Xlib.X.NONE, "the tray is there")

    def start_panel(self):
        self.start("env", "XFCE_PANEL_MIGRATE_DEFAULT=1", "xfce4-panel", "--disable-wm-check", name="panel")
        wait_until(lambda: subprocess.run(["gdbus", "call", "--session", "--dest", "org.kde.StatusNotifierWatcher",
                                           "--object-path", "/", "--method", "org.freedesktop.DBus.Peer.Ping"],
                                          capture_output=True, check=False).returncode == 0,
                   "the watcher is there")

    def start_application(self, application):
        file = pathlib.Path(os.environ["XDG_CONFIG_HOME"]) / application.file
        file.parent.mkdir(parents=True, exist_ok=True)
        file.write_text(application.settings)
        program = self.start(application.command)
        windows.wait_for_window(wm_class=application.wm_class)
        return program

    def watch(self, application, program, quit_when_hidden):
        rule = {"bundleIdentifier": application.bundle, "quitOnLastWindowClose": True,
                "quitWhenHidden": quit_when_hidden}
        ambrel = self.start_ambrel(rules={"rules": [rule], "defaultRule": {"bundleIdentifier": "*"}})
        self.wait_until_attached(ambrel, program)
        return ambrel

    def close_window(self, application):
        windows.close(windows.wait_for_window(wm_class=application.wm_class))

    def check_application(self, application):
        program = self.start_application(application)
        ambrel = self.watch(application, program, False)
        self.close_window(application)
        wait_until(lambda: not windows.windows(program.pid), "its window is gone")
        self.check_left_alone(ambrel, program)
        ambrel.stop()

        # Opened again by its user, and then put away with the rule.
        self.start(application.command, name="opener")
        windows.wait_for_window(wm_class=application.wm_class)
        ambrel = self.watch(application, program, True)
        self.wait_until_settled(program)
        self.close_window(application)
        ambrel.wait_for(f"hide-quit terminating {application.bundle} pid {program.pid}")
        program.wait_for_end()

    def check_icon_alone(self, application):
        """These two keep their window alive; others destroy it, and nothing is left of them but the icon."""
        program = self.start_application(application)
        ambrel = self.watch(application, program, False)
        window = windows.wait_for_window(wm_class=application.wm_class)
        subprocess.run(["xdotool", "windowclose", window.id], check=True)
        ambrel.wait_for(f"{application.bundle} is hidden")
        self.check_left_alone(ambrel, program)
        ambrel.stop()

    def test_icons_alone_in_an_embedding_tray(self):
        self.start_trayer()
        for application in (KEEPASSXC, TRANSMISSION):
            self.check_icon_alone(application)

    def test_icons_alone_with_a_watcher(self):
        self.start_panel()
        for application in (KEEPASSXC, TRANSMISSION):
            self.check_icon_alone(application)

    def test_keepassxc_in_an_embedding_tray(self):
        self.start_trayer()
        self.check_application(KEEPASSXC)

    def test_transmission_in_an_embedding_tray(self):
        self.start_trayer()
        self.check_application(TRANSMISSION)

    def test_keepassxc_with_a_watcher(self):
        self.start_panel()
        self.check_application(KEEPASSXC)

    def test_transmission_with_a_watcher(self):
        self.start_panel()
        self.check_application(TRANSMISSION)


if __name__ == "__main__":
    desktop_test.main()
