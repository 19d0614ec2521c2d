"""logind with one session, "c1", for dbusmock: there before anybody's first question is answered."""
import os

import dbus
from dbusmock import mockobject
from dbusmock.templates import logind
from dbusmock.templates.logind import *  # pylint: disable=wildcard-import,unused-wildcard-import

SESSION_INTERFACE = "org.freedesktop.login1.Session"


def load(mock, parameters):
    logind.load(mock, parameters)
    path = mock.AddSession("c1", "seat0", dbus.UInt32(os.getuid()), "tester", True)
    begin = {name: dbus.Boolean(value) for name, value in parameters.items()}
    mockobject.objects[path].UpdateProperties(SESSION_INTERFACE, begin)
    mock.AddMethod(logind.MAIN_IFACE, "GetSession", "s", "o", f"ret = '{path}'")
