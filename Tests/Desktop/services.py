"""The services of a session, played by programs that end with their test."""
import json
import os
import pathlib

import dbus
import dbus.bus

from programs import Program, wait_until

PYTHON, FOLDER = "/usr/bin/python3", pathlib.Path(__file__).resolve().parent
BUS = "org.freedesktop.DBus"
# What Ambrel says of the screen.
LOCKED, UNLOCKED = (f"systemstate: screen {word} — last-window quits " for word in ("locked", "unlocked"))
LOGIN, LOGIN_PATH = "org.freedesktop.login1", "/org/freedesktop/login1"


def process_of(bus, name):
    """The process that owns the name on the bus, or that is the bus if this is the bus's own name; 0 for none."""
    if not bus.name_has_owner(name):
        return 0
    return bus.call_blocking(BUS, "/org/freedesktop/DBus", BUS, "GetConnectionUnixProcessID", "s", (name,))


class Logind(Program):
    """Of one session; the given properties are the ones it begins with. The environment may name another bus."""

    def __init__(self, environment=None, **properties):
        environment = {**os.environ, **(environment or {})}
        super().__init__([PYTHON, "-B", "-m", "dbusmock", "--system", "--template", str(FOLDER / "logind_mock.py"),
                          "--parameters", json.dumps(properties)], environment=environment, name="logind")
        self.bus = dbus.bus.BusConnection(environment["DBUS_SYSTEM_BUS_ADDRESS"])
        wait_until(lambda: process_of(self.bus, LOGIN) == self.pid, "logind is there")

    def _mock(self, path):
        return dbus.Interface(self.bus.get_object(LOGIN, path, introspect=False), BUS + ".Mock")

    def update(self, **properties):
        self._mock(LOGIN_PATH + "/session/c1").UpdateProperties(LOGIN + ".Session", properties)

    def prepare_for_sleep(self, begins):
        self._mock(LOGIN_PATH).EmitSignal(LOGIN + ".Manager", "PrepareForSleep", "b", [begins])

    def prepare_for_shutdown(self, begins):
        self._mock(LOGIN_PATH).EmitSignal(LOGIN + ".Manager", "PrepareForShutdown", "b", [begins])


class Occupant(Program):
    def __init__(self, *arguments):
        super().__init__([PYTHON, "-B", str(FOLDER / "occupant.py"), *arguments], name=arguments[0])
        self.wait_for("is there")


class ScreenSaver(Program):
    def __init__(self, name="org.freedesktop.ScreenSaver", path="/ScreenSaver", begin="off"):
        super().__init__([PYTHON, "-B", str(FOLDER / "screen_saver.py"), name, path, begin], name="screen saver")
        self.wait_for("is there")
