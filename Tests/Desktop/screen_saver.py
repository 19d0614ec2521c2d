"""screen_saver.py NAME PATH on|off: a screen saver of the session bus, which turns on and off as it reads."""
import sys

import dbus.service

from service import serve

NAME, PATH, BEGIN = sys.argv[1:]


class ScreenSaver(dbus.service.Object):
    is_on = BEGIN == "on"

    @dbus.service.method(NAME, out_signature="b")
    def GetActive(self):
        return self.is_on

    @dbus.service.signal(NAME, signature="b")
    def ActiveChanged(self, is_on):
        self.is_on = is_on


serve(lambda bus: ScreenSaver(bus, PATH), NAME, lambda saver, line: saver.ActiveChanged(line == "on"))
