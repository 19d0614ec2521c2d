"""Real applications that go to real trays: by a StatusNotifierItem where there is a watcher, by XEmbed where there is
none."""
import collections
import json
import os
import pathlib
import subprocess

import desktop_test
import windows
from desktop_test import DesktopTest
from programs import wait_until

Application = collections.namedtuple("Application", "command bundle wm_class icon file settings")

KEEPASSXC = Application("keepassxc", "org.keepassxc.keepassxc", "keepassxc.keepassxc", "keepassxc",
                        "keepassxc/keepassxc.ini",
                        """[General]
ConfigVersion=2
UpdateCheckMessageShown=true
[GUI]
MinimizeOnClose=true
MinimizeToTray=true
ShowTrayIcon=true
CheckForUpdates=false
""")
TRANSMISSION = Application("transmission-gtk", "transmission-gtk", "transmission-gtk.transmission-gtk", "transmission",
                           "transmission/settings.json", json.dumps({
                               "show-notification-area-icon": True, "user-has-given-informed-consent": True,
                               "dht-enabled": False, "lpd-enabled": False, "utp-enabled": False,
                               "port-forwarding-enabled": False, "bind-address-ipv4": "127.0.0.1",
                               "bind-address-ipv6": "::1"}))


def output(*command):
    """Empty where the command fails."""
    result = subprocess.run(command, capture_output=True, text=True, check=False)
    return result.stdout if result.returncode == 0 else ""


class TrayApplications(DesktopTest):
    def start_trayer(self):
        self.start("trayer")
        self.icons = lambda: output("xwininfo", "-tree", "-name", "panel")
        wait_until(self.icons, "the tray is there")

    def start_panel(self):
        self.start("env", "XFCE_PANEL_MIGRATE_DEFAULT=1", "xfce4-panel", "--disable-wm-check", name="panel")
        self.icons = lambda: output("gdbus", "call", "--session", "--dest", "org.kde.StatusNotifierWatcher",
                                    "--object-path", "/StatusNotifierWatcher", "--method",
                                    "org.freedesktop.DBus.Properties.GetAll", "org.kde.StatusNotifierWatcher")
        wait_until(self.icons, "the watcher is there")

    def start_application(self, application):
        file = pathlib.Path(os.environ["XDG_CONFIG_HOME"]) / application.file
        file.parent.mkdir(parents=True, exist_ok=True)
        file.write_text(application.settings)
        program = self.start(application.command)
        windows.wait_for_window(wm_class=application.wm_class)
        # A tray names an icon by its window's class, a watcher by the process or the application.
        names = (f'("{application.icon}"', f"StatusNotifierItem-{program.pid}-", f"NotificationItem/{application.icon}")
        wait_until(lambda: any(name in self.icons() for name in names), "its icon is in the tray")
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
        ambrel.stop()

    def check_all(self):
        for application in (KEEPASSXC, TRANSMISSION):
            self.check_application(application)

    def test_in_an_embedding_tray(self):
        self.start_trayer()
        self.check_all()

    def test_with_a_watcher(self):
        self.start_panel()
        self.check_all()


if __name__ == "__main__":
    desktop_test.main()
