"""Plays a service that knows of applications or of the session, on the session's bus:

occupant.py player STATUS ENTRY     a media player of this process, whose status is what it reads
occupant.py session ENTRY           a session manager with one inhibitor, of this application
occupant.py login MODE PID          logind with one inhibitor in this mode, of this process (0: its own)
occupant.py xfce                    Xfce's session manager, which tells of the changes that it reads, like "1 3"
"""
import os
import sys

import dbus
import dbus.service

from service import serve

MANAGER, LOGIN = "org.gnome.SessionManager", "org.freedesktop.login1"


class Player(dbus.service.Object):
    status, entry = (sys.argv + ["", ""])[2:4]

    @dbus.service.method(dbus.PROPERTIES_IFACE, in_signature="ss", out_signature="v")
    def Get(self, _interface, name):
        return {"PlaybackStatus": self.status, "DesktopEntry": self.entry}[name]


class Manager(dbus.service.Object):
    @dbus.service.method(MANAGER, out_signature="ao")
    def GetInhibitors(self):
        return [dbus.ObjectPath("/inhibitor")]


class Inhibitor(dbus.service.Object):
    @dbus.service.method(MANAGER + ".Inhibitor", out_signature="s")
    def GetAppId(self):
        return sys.argv[2]


class Login(dbus.service.Object):
    @dbus.service.method(LOGIN + ".Manager", out_signature="a(ssssuu)")
    def ListInhibitors(self):
        mode, pid = sys.argv[2], int(sys.argv[3]) or os.getpid()
        return [("sleep", "someone", "busy", mode, dbus.UInt32(os.getuid()), dbus.UInt32(pid))]


class Xfce(dbus.service.Object):
    @dbus.service.signal("org.xfce.Session.Manager", signature="uu")
    def StateChanged(self, before, now):
        pass


def make(bus):
    if sys.argv[1] == "player":
        return Player(bus, "/org/mpris/MediaPlayer2")
    if sys.argv[1] == "session":
        return Manager(bus, "/org/gnome/SessionManager"), Inhibitor(bus, "/inhibitor")
    if sys.argv[1] == "xfce":
        return Xfce(bus, "/org/xfce/SessionManager")
    return Login(bus, "/org/freedesktop/login1")


def obey(service, line):
    if sys.argv[1] == "xfce":
        service.StateChanged(*map(dbus.UInt32, line.split()))
    else:
        service.status = line


names = {"player": f"org.mpris.MediaPlayer2.played{os.getpid()}", "session": MANAGER, "login": LOGIN,
         "xfce": "org.xfce.SessionManager"}
serve(make, names[sys.argv[1]], obey)
