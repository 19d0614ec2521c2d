"""A StatusNotifierWatcher without a host: keeps the items that register, and tells of them."""
import dbus
import dbus.bus
import dbus.mainloop.glib
import dbus.service
from gi.repository import GLib

NAME = "org.kde.StatusNotifierWatcher"


class Watcher(dbus.service.Object):
    def __init__(self, bus):
        self.items = []
        self.bus = bus
        self.name = dbus.service.BusName(NAME, bus)
        super().__init__(bus, "/StatusNotifierWatcher")

    @dbus.service.method(NAME, in_signature="s", sender_keyword="sender")
    def RegisterStatusNotifierItem(self, service, sender):
        item = sender + service if service.startswith("/") else service
        self.items.append(item)
        self.bus.watch_name_owner(item.partition("/")[0], lambda owner: owner or self.forget(item))
        self.StatusNotifierItemRegistered(item)

    def forget(self, item):
        if item in self.items:
            self.items.remove(item)
            self.StatusNotifierItemUnregistered(item)
            print("unregistered", flush=True)

    @dbus.service.signal(NAME, signature="s")
    def StatusNotifierItemRegistered(self, item):
        pass

    @dbus.service.signal(NAME, signature="s")
    def StatusNotifierItemUnregistered(self, item):
        pass

    @dbus.service.method("org.freedesktop.DBus.Properties", in_signature="s", out_signature="a{sv}")
    def GetAll(self, _interface):
        return {"ProtocolVersion": dbus.Int32(0), "IsStatusNotifierHostRegistered": True,
                "RegisteredStatusNotifierItems": dbus.Array(self.items, signature="s")}


dbus.mainloop.glib.DBusGMainLoop(set_as_default=True)
watcher = Watcher(dbus.SessionBus())
print("watching", flush=True)
GLib.MainLoop().run()
