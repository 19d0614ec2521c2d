"""Ambrel's own icon in real trays: a StatusNotifierItem where there is a watcher, XEmbed where there is none."""
import pathlib

import dbus

import desktop_test
from programs import wait_until
from tray_icon import TrayIconTest, darkness, drawn

WATCHER, WATCHER_PATH = "org.kde.StatusNotifierWatcher", "/StatusNotifierWatcher"
ITEM, ITEM_PATH = "org.kde.StatusNotifierItem", "/StatusNotifierItem"
MENU, MENU_PATH = "com.canonical.dbusmenu", "/StatusNotifierItem/Menu"
PROPERTIES = "org.freedesktop.DBus.Properties"


class StatusItem(TrayIconTest):
    def start_helper(self, name, *arguments):
        return self.start("/usr/bin/python3", "-B", str(pathlib.Path(__file__).parent / name), *arguments, name=name)

    def start_watcher(self):
        watcher = self.start_helper("sni_watcher.py")
        watcher.wait_for("watching")
        return watcher

    def start_with_icon(self, **arguments):
        ambrel = self.start_ambrel(**arguments)
        ambrel.wait_for("ui: status item installed — icon loaded 16x16 template=true")
        return ambrel

    def check_click_toggles(self, x, y, button=1):
        """One click opens the dropdown near the icon, the next one closes it."""
        self.screen.click(x, y, button)
        left, top, width, height = wait_until(self.dropdown, "the click opens the dropdown")
        self.assertTrue(left <= x <= left + width and top - 40 <= y <= top, (left, top, width, height))
        self.screen.click(x, y, button)
        wait_until(lambda: not self.dropdown(), "the next click closes it")

    def items(self):
        try:
            bus = dbus.SessionBus()
            if not bus.name_has_owner(WATCHER):
                return []
            return list(bus.call_blocking(WATCHER, WATCHER_PATH, PROPERTIES, "GetAll", "s", (WATCHER,))
                        .get("RegisteredStatusNotifierItems", []))
        except dbus.DBusException:
            return []

    def wait_for_item(self):
        """The bus name that offers the one item of the watcher."""
        items = wait_until(self.items, "an item is registered")
        self.assertEqual(1, len(items))
        return items[0].partition("/")[0]

    def ask(self, owner, path, interface, method, signature, arguments):
        return dbus.SessionBus().call_blocking(owner, path, interface, method, signature, arguments)

    def titles(self, owner):
        _revision, (_id, _properties, entries) = self.ask(owner, MENU_PATH, MENU, "GetLayout", "iias", (0, -1, []))
        return [str(entry[1].get("label", "---")) for entry in entries]


class InAnXEmbedTray(StatusItem):
    def test_icon_is_drawn_in_the_middle_in_a_colour_that_is_seen(self):
        pictures = {}
        for options, paused in (([], False), ([], True), (["--transparent", "true", "--tint", "0x000000", "--alpha",
                                                           "0"], False)):
            trayer = self.start_trayer(*options)
            ambrel = self.start_with_icon(defaults={"isPaused": paused})
            (_x, _y, width, height), pixels = self.wait_for_picture()
            left, top, right, bottom = drawn(pixels)
            self.assertEqual((24, 24), (width, height))
            self.assertLessEqual(abs(left - (width - 1 - right)), 1, pixels)
            self.assertLessEqual(abs(top - (height - 1 - bottom)), 1, pixels)
            self.assertGreaterEqual(right - left, 17)
            ground = darkness(pixels[0][0])
            strongest = max((darkness(pixel) for row in pixels for pixel in row), key=lambda each: abs(each - ground))
            self.assertGreater(abs(strongest - ground), 120, "dark on light, or light on dark")
            pictures[(bool(options), paused)] = pixels
            ambrel.stop()
            trayer.stop()
        self.assertNotEqual(pictures[(False, False)], pictures[(False, True)])

    def test_click_reaches(self):
        self.start_trayer()
        self.start_with_icon()
        (x, y, width, height), _pixels = self.wait_for_picture()
        for button in (1, 3):
            self.check_click_toggles(x + width // 2, y + height // 2, button)

    def test_tray_that_comes_late_and_comes_back(self):
        self.start_with_icon()
        for ending in ("stop", "kill"):
            trayer = self.start_trayer()
            self.wait_for_picture()
            trayer.stop() if ending == "stop" else trayer.process.kill()
            wait_until(lambda: not self.screen.windows("panel"), "the tray is gone")
            wait_until(lambda: not self.icons(), "so is the icon")
        self.start_trayer()
        (x, y, _width, _height), _pixels = self.wait_for_picture()
        self.check_click_toggles(x + 5, y + 5)

    def test_hidden_icon_is_in_no_tray(self):
        self.start_trayer()
        ambrel = self.start_with_icon(environment={"AMBREL_HIDE_ICON_AFTER": "2"})
        self.wait_for_picture()
        ambrel.wait_for("ui: menu bar icon hidden")
        wait_until(lambda: not self.icons(), "the icon is gone")

    def test_watcher_takes_over_and_gives_back(self):
        self.start_trayer()
        self.start_with_icon()
        for _ in range(2):
            self.wait_for_picture()
            watcher = self.start_watcher()
            self.wait_for_item()
            wait_until(lambda: not self.icons(), "the icon is in one tray only")
            watcher.stop()


class OnTheBus(StatusItem):
    def test_watcher_that_comes_late_and_comes_back(self):
        self.start_with_icon()
        for _ in range(2):
            watcher = self.start_watcher()
            self.wait_for_item()
            watcher.stop()
        watcher = self.start_watcher()
        self.wait_for_item()
        self.assertEqual([], self.icons())

    def test_what_it_says_and_does(self):
        self.start_watcher()
        self.start_with_icon()
        owner = self.wait_for_item()
        said = self.ask(owner, ITEM_PATH, PROPERTIES, "GetAll", "s", (ITEM,))
        for name, value in {"Id": "ambrel", "Title": "Ambrel", "Category": "ApplicationStatus", "Status": "Active",
                            "ItemIsMenu": False, "Menu": MENU_PATH}.items():
            self.assertEqual(value, said[name], name)
        self.assertEqual([16, 22, 24, 32, 44, 48], [width for width, _height, _data in said["IconPixmap"]])
        for width, height, data in said["IconPixmap"]:
            self.assertEqual(4 * width * height, len(data))
            alphas = bytes(data[0::4])
            self.assertEqual((0, True), (alphas[0], max(alphas) > 250), "ARGB, alpha first")
        for method in ("Activate", "SecondaryActivate", "ContextMenu"):
            self.ask(owner, ITEM_PATH, ITEM, method, "ii", (700, 10))
            left, _top, width, _height = wait_until(self.dropdown, f"{method} opens the dropdown")
            self.assertLessEqual(abs(left + width / 2 - 700), 1)
            self.ask(owner, ITEM_PATH, ITEM, method, "ii", (700, 10))
            wait_until(lambda: not self.dropdown(), "and closes it")

    def test_menu_for_hosts_without_clicks(self):
        self.start_watcher()
        ambrel = self.start_with_icon()
        owner = self.wait_for_item()
        self.assertEqual(["Open Ambrel", "Pause", "---", "Quit All Apps", "Running Apps…", "Settings…", "---",
                          "Quit Ambrel"], self.titles(owner))
        properties = self.ask(owner, MENU_PATH, MENU, "GetGroupProperties", "aias", ([2, 3], []))
        self.assertEqual([(2, {"label": "Pause"}), (3, {"type": "separator"})],
                         [(number, dict(each)) for number, each in properties])
        active = self.ask(owner, ITEM_PATH, PROPERTIES, "Get", "ss", (ITEM, "IconPixmap"))
        self.ask(owner, MENU_PATH, MENU, "Event", "isvu", (2, "hovered", 0, 0))
        self.ask(owner, MENU_PATH, MENU, "Event", "isvu", (2, "clicked", 0, 0))
        ambrel.wait_for("pause state -> paused")
        wait_until(lambda: self.titles(owner)[1] == "Resume", "the entry has changed")
        wait_until(lambda: self.ask(owner, ITEM_PATH, PROPERTIES, "Get", "ss", (ITEM, "IconPixmap")) != active,
                   "and the picture")
        self.ask(owner, MENU_PATH, MENU, "EventGroup", "a(isvu)", ([(99, "clicked", 0, 0), (8, "clicked", 0, 0)],))
        self.assertEqual(0, ambrel.wait_for_end())

    def test_hidden_item_is_withdrawn(self):
        watcher = self.start_watcher()
        self.start_with_icon(environment={"AMBREL_HIDE_ICON_AFTER": "1"})
        self.wait_for_item()
        watcher.wait_for("unregistered")
        self.assertEqual([], self.items())


class InAPanel(StatusItem):
    PANEL_HEIGHT = 26

    def panel(self):
        return self.screen.pixels(0, 0, self.screen.display.screen().width_in_pixels, self.PANEL_HEIGHT)

    def start_panel(self):
        self.start("env", "XFCE_PANEL_MIGRATE_DEFAULT=1", "xfce4-panel", "--disable-wm-check", name="panel")
        wait_until(lambda: dbus.SessionBus().name_has_owner(WATCHER), "the watcher is there")

    def test_colour_follows_the_desktop(self):
        self.start_panel()
        self.start_with_icon()
        wait_until(self.find_icon, "it is light where nobody says what the panel is like")
        portal = self.start_helper("settings_portal.py", "2")
        portal.wait_for("is there")
        wait_until(lambda: not self.find_icon(), "it is dark on a light desktop")
        portal.say("1")
        wait_until(self.find_icon, "it is light on a dark one")

    def test_icon_is_seen_and_clicked(self):
        self.start_panel()
        ambrel = self.start_with_icon(environment={"AMBREL_HIDE_ICON_AFTER": "8"})
        self.wait_for_item()
        place = wait_until(self.find_icon, "the icon is seen in the panel")
        self.assertEqual([], self.icons())
        self.check_click_toggles(*place)
        ambrel.wait_for("ui: menu bar icon hidden")
        wait_until(lambda: not self.find_icon(), "the icon is gone from the panel")

    def find_icon(self):
        """The middle of a light ring in the panel with a cross in it, which is how the icon is drawn."""
        rows = self.panel()
        light = [[min(pixel) > 170 for pixel in row] for row in rows]
        # The middle of a picture of even size is where four pixels meet.
        span = [(dx, dy, ((2 * dx + 1) ** 2 + (2 * dy + 1) ** 2) / 4) for dx in range(-11, 11) for dy in range(-11, 11)]
        ring = [(dx, dy) for dx, dy, square in span if 8 ** 2 <= square <= 9 ** 2]
        gaps = [(dx, dy) for dx, dy, square in span if square <= 7 ** 2 and abs(abs(dx + .5) - abs(dy + .5)) > 3]
        for y in range(11, self.PANEL_HEIGHT - 10):
            for x in range(11, len(rows[0]) - 11):
                if light[y][x] and sum(light[y + dy][x + dx] for dx, dy in ring) > 0.8 * len(ring) \
                        and not any(light[y + dy][x + dx] for dx, dy in gaps):
                    return x, y
        return None


if __name__ == "__main__":
    desktop_test.main()
