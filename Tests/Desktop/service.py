"""What the played services of the session bus have in common: they act on the lines that they read."""
import sys

import dbus
import dbus.service
from dbus.mainloop.glib import DBusGMainLoop
from gi.repository import GLib


def serve(make, name, obey):
    """Makes the service on the bus, takes the name, and tells it each line; ends with the input."""
    DBusGMainLoop(set_as_default=True)
    bus = dbus.SessionBus()
    service, loop = make(bus), GLib.MainLoop()

    def read(*_):
        line = sys.stdin.readline().strip()
        obey(service, line) if line else loop.quit()
        return True

    GLib.io_add_watch(sys.stdin, GLib.PRIORITY_DEFAULT, GLib.IO_IN | GLib.IO_HUP, read)
    owned = dbus.service.BusName(name, bus, do_not_queue=True)
    print(f"{owned.get_name()} is there", flush=True)
    loop.run()
