"""What a screen reader is told of Ambrel's windows, and a hand that follows it."""
import re
import subprocess

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402 (only after the version)

from programs import wait_until  # noqa: E402

# What tells programs that a screen reader is there.
ENVIRONMENT = {"QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1"}


def press(*keys):
    subprocess.run(["xdotool", "key", *keys], check=True)


def write(text):
    subprocess.run(["xdotool", "type", "--delay", "20", text], check=True)


class ScreenReader:
    """Elements are known by their names, or by a pattern of them; where one name is of a control and of the text beside
    it, the control is meant."""

    def __init__(self, pid):
        self.pid = pid

    def elements(self, parent=None):
        """Everything that is showing, from the outside to the inside."""
        if parent is None:
            desktop = Atspi.get_desktop(0)
            desktop.clear_cache()
            parents = [desktop.get_child_at_index(index) for index in range(desktop.get_child_count())]
            parents = [each for each in parents if each is not None and each.get_process_id() == self.pid]
        else:
            parents = [parent.get_child_at_index(index) for index in range(parent.get_child_count())]
        for each in filter(None, parents):
            yield each
            yield from self.elements(each)

    def named(self, name):
        pattern = name if isinstance(name, re.Pattern) else re.escape(name)
        found = [each for each in self.elements()
                 if re.fullmatch(pattern, each.get_name() or "") and self.has(each, Atspi.StateType.SHOWING)]
        found.sort(key=lambda each: each.get_role() == Atspi.Role.LABEL)
        return found[0] if found else None

    @staticmethod
    def has(element, state):
        return element.get_state_set().contains(state)

    @staticmethod
    def wait_until(question, what):
        """An element may go while it is asked about; it is then looked for anew."""
        def ask():
            try:
                return question()
            except GLib.Error:
                return None
        return wait_until(ask, what)

    def find(self, name):
        return self.wait_until(lambda: self.named(name), f"{name!r} is on the screen")

    def wait_until_gone(self, name):
        self.wait_until(lambda: not self.named(name), f"{name!r} is gone")

    def wait_until_checked(self, name):
        def is_checked():
            element = self.named(name)
            return element and self.has(element, Atspi.StateType.CHECKED)
        self.wait_until(is_checked, f"{name!r} is checked")

    def reach(self, name):
        """Goes there by the keyboard, which brings it into sight."""
        def has_the_keyboard():
            press("Tab")
            element = self.named(name)
            return element and self.has(element, Atspi.StateType.FOCUSED)
        self.wait_until(has_the_keyboard, f"{name!r} has the keyboard")

    def click(self, name):
        """In the middle of it, once it has come to rest."""
        place = None

        def rests():
            nonlocal place
            element = self.named(name)
            before, place = place, element and element.get_component_iface().get_extents(Atspi.CoordType.SCREEN)
            return place and before and (before.x, before.y) == (place.x, place.y)
        self.wait_until(rests, f"{name!r} is at rest on the screen")
        subprocess.run(["xdotool", "mousemove", str(place.x + place.width // 2), str(place.y + place.height // 2),
                        "click", "1"], check=True)
