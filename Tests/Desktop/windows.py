"""The windows of the private desktop, and its window manager, as any pager sees them."""
import collections
import os
import shlex
import signal
import subprocess

from programs import wait_until

Window = collections.namedtuple("Window", "id pid wm_class title")

CAN_MINIMISE = os.environ.get("AMBREL_DESKTOP_WM") != "i3"

_manager_pid = int(os.environ.get("AMBREL_DESKTOP_WM_PID", 0))
_later_managers = []


def _run(*command):
    return subprocess.run(command, capture_output=True, text=True, errors="replace", check=False)


def windows(pid=None):
    """The managed windows, of one process or of all."""
    found = []
    for line in _run("wmctrl", "-lpx").stdout.splitlines():
        identifier, _desktop, owner, wm_class, *rest = line.split(maxsplit=5)
        found.append(Window(identifier, int(owner), wm_class, rest[-1] if rest else ""))
    return [window for window in found if pid in (None, window.pid)]


def wait_for_window(pid=None, wm_class=None):
    """The first managed window of the process, or of the class (in small letters, "instance.class")."""

    def sought():
        return [window for window in windows(pid) if wm_class is None or window.wm_class.lower() == wm_class]

    return wait_until(sought, f"a window of {wm_class or pid} appears")[0]


def close(window):
    """Asks the window manager to close the window, as a click on its cross would."""
    _run("wmctrl", "-i", "-c", window.id)


def raise_window(window):
    """Asks the window manager to bring the window up, as a click in a task bar would."""
    _run("wmctrl", "-i", "-a", window.id)


def activate(identifier):
    """Brings a window to the front; a window manager that is busy with another one may pass over the request."""

    def is_active():
        _run("wmctrl", "-i", "-a", identifier)
        active = _run("xprop", "-root", "32x", " $0", "_NET_ACTIVE_WINDOW").stdout.split()[-1]
        return int(active, 16) == int(identifier, 16)

    wait_until(is_active, f"window {identifier} is in front")


def is_hidden(window):
    """Minimised, in the window manager's own words."""
    return "_NET_WM_STATE_HIDDEN" in _run("xprop", "-id", window.id, "_NET_WM_STATE").stdout


def end_window_manager():
    os.kill(_manager_pid, signal.SIGKILL)
    for manager in _later_managers:
        manager.poll()
    wait_until(lambda: not os.path.exists(f"/proc/{_manager_pid}/exe"), "the window manager is gone")


def start_window_manager():
    """A new one of the same kind; it stays when the test ends, and ends with the desktop."""
    global _manager_pid
    manager = subprocess.Popen(shlex.split(os.environ["AMBREL_DESKTOP_WM_COMMAND"]), stdin=subprocess.DEVNULL,
                               stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, start_new_session=True)
    _later_managers.append(manager)
    _manager_pid = manager.pid
    wait_until(lambda: _run("wmctrl", "-m").returncode == 0, "the new window manager is there")
