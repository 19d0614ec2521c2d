"""settings_portal.py SCHEME: the desktop's settings, of which this knows the colour scheme (0 none, 1 dark, 2 light), which
changes as it reads."""
import sys

import dbus
import dbus.service

from service import serve

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


serve(lambda bus: Portal(bus, PATH), NAME, lambda portal, line: portal.SettingChanged(SPACE, KEY, dbus.UInt32(line)))
