"""screen_saver.py NAME PATH on|off: a screen saver of the session bus, which turns on and off as it reads."""
import sys

import dbus
import dbus.service
from dbus.mainloop.glib import DBusGMainLoop
from gi.repository import GLib

NAME, PATH, BEGIN = sys.argv[1:]


class ScreenSaver(dbus.service.Object):
    is_on = BEGIN == "on"

    @dbus.service.method(NAME, out_signature="b")
    def GetActive(self):
        return self.is_on

    @dbus.service.signal(NAME, signature="b")
    def ActiveChanged(self, is_on):
        self.is_on = is_on


def main():
    DBusGMainLoop(set_as_default=True)
    bus = dbus.SessionBus()
    saver = ScreenSaver(bus, PATH)
    loop = GLib.MainLoop()

    def obey(*_):
        line = sys.stdin.readline().strip()
        saver.ActiveChanged(line == "on") if line else loop.quit()
        return True

    GLib.io_add_watch(sys.stdin, GLib.PRIORITY_DEFAULT, GLib.IO_IN | GLib.IO_HUP, obey)
    owned = dbus.service.BusName(NAME, bus, do_not_queue=True)
    print(f"{owned.get_name()} is there", flush=True)
    loop.run()


main()
