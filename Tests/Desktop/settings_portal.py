"""settings_portal.py SCHEME: the desktop's settings, of which this knows the colour scheme (0 none, 1 dark, 2 light), which
changes as it reads."""
import sys

import dbus
import dbus.service
from dbus.mainloop.glib import DBusGMainLoop
from gi.repository import GLib

NAME, PATH = "org.freedesktop.portal.Desktop", "/org/freedesktop/portal/desktop"
SETTINGS, SPACE, KEY = "org.freedesktop.portal.Settings", "org.freedesktop.appearance", "color-scheme"


class Portal(dbus.service.Object):
    scheme = dbus.UInt32(sys.argv[1])

    @dbus.service.method(SETTINGS, in_signature="as", out_signature="a{sa{sv}}")
    def ReadAll(self, _spaces):
        return {SPACE: {KEY: self.scheme}}

    @dbus.service.signal(SETTINGS, signature="ssv")
    def SettingChanged(self, _space, _key, value):
        self.scheme = value


def main():
    DBusGMainLoop(set_as_default=True)
    bus = dbus.SessionBus()
    portal = Portal(bus, PATH)
    loop = GLib.MainLoop()

    def obey(*_):
        line = sys.stdin.readline().strip()
        portal.SettingChanged(SPACE, KEY, dbus.UInt32(line)) if line else loop.quit()
        return True

    GLib.io_add_watch(sys.stdin, GLib.PRIORITY_DEFAULT, GLib.IO_IN | GLib.IO_HUP, obey)
    owned = dbus.service.BusName(NAME, bus, do_not_queue=True)
    print(f"{owned.get_name()} is there", flush=True)
    loop.run()


main()
