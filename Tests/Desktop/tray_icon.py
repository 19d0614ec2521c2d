"""Ambrel's icon in the tray of the private desktop, and what is on the screen, pixel by pixel."""
import subprocess

import Xlib.X
import Xlib.display
import Xlib.error

from desktop_test import DesktopTest
from programs import wait_until


class Screen:
    """What is on the screen, pixel by pixel."""

    def __init__(self):
        self.display = Xlib.display.Display()
        self.root = self.display.screen().root

    def pixels(self, x, y, width, height):
        """Rows of (red, green, blue)."""
        data = self.root.get_image(x, y, width, height, Xlib.X.ZPixmap, 0xFFFFFFFF).data
        return [[tuple(data[4 * (row * width + column) + channel] for channel in (2, 1, 0))
                 for column in range(width)] for row in range(height)]

    def windows(self, wm_class, window=None):
        """The windows of this class, wherever they are."""
        found = []
        try:
            for child in (window or self.root).query_tree().children:
                if child.get_wm_class() and child.get_wm_class()[0] == wm_class:
                    found.append(child)
                found += self.windows(wm_class, child)
        except Xlib.error.BadWindow:
            pass
        return found

    def place(self, window):
        """Its place on the screen: x, y, width, height."""
        geometry = window.get_geometry()
        corner = self.root.translate_coords(window, 0, 0)
        return corner.x, corner.y, geometry.width, geometry.height

    def click(self, x, y, button=1):
        subprocess.run(["xdotool", "mousemove", str(x), str(y), "click", str(button)], check=True)


def darkness(pixel):
    return 255 - sum(pixel) // 3


def drawn(pixels):
    """Where pixels differ from the one in the corner: left, top, right, bottom, all inclusive; None for nowhere."""
    ground = pixels[0][0]
    marks = [(x, y) for y, row in enumerate(pixels) for x, pixel in enumerate(row)
             if max(abs(one - other) for one, other in zip(pixel, ground)) > 40]
    if not marks:
        return None
    return (min(x for x, _ in marks), min(y for _, y in marks), max(x for x, _ in marks), max(y for _, y in marks))


class TrayIconTest(DesktopTest):
    def setUp(self):
        super().setUp()
        self.screen = Screen()
        self.addCleanup(self.screen.display.close)

    def start_trayer(self, *options):
        trayer = self.start("trayer", "--edge", "top", "--align", "right", "--height", "26", "--widthtype", "request",
                            *options)
        wait_until(lambda: self.screen.windows("panel"), "the tray is there")
        return trayer

    def icons(self):
        """The windows that are made for a tray, in one or not."""
        for_a_tray, managed = map(self.screen.display.intern_atom, ("_XEMBED_INFO", "WM_STATE"))
        try:
            return [window for window in self.screen.windows("ambrel")
                    if window.get_full_property(for_a_tray, Xlib.X.AnyPropertyType)
                    and not window.get_full_property(managed, Xlib.X.AnyPropertyType)]
        except Xlib.error.BadWindow:
            return []

    def dropdown(self):
        """The place of the panel that a click opens; None while there is none."""
        try:
            for window in self.screen.root.query_tree().children:
                wm_class, attributes = window.get_wm_class(), window.get_attributes()
                if wm_class and wm_class[0] == "ambrel" and attributes.map_state == Xlib.X.IsViewable:
                    return self.screen.place(window)
        except Xlib.error.BadWindow:
            pass
        return None

    def embedded(self):
        """The icon's window, once a tray has taken it in and shows it."""
        try:
            for window in self.icons():
                if window.query_tree().parent != self.screen.root \
                        and window.get_attributes().map_state == Xlib.X.IsViewable:
                    return window
        except Xlib.error.BadWindow:
            pass
        return None

    def wait_for_picture(self):
        """The place of the embedded icon and the pixels there, once it has got its room and is drawn."""
        def picture():
            window = self.embedded()
            if not window:
                return None
            place = self.screen.place(window)
            try:
                pixels = self.screen.pixels(*place)
            except Xlib.error.BadMatch:  # the tray is still on its way to its place
                return None
            return (place, pixels) if place[2] == place[3] and drawn(pixels) else None
        return wait_until(picture, "the icon is drawn in the tray")
