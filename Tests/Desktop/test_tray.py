"""Applications that close their last window and live on in the tray, of either kind."""
import pathlib
import re

import desktop_test
from desktop_test import SUBJECT, DesktopTest
from programs import wait_until

QUIT_WHEN_HIDDEN = {"rules": [{"bundleIdentifier": SUBJECT, "quitWhenHidden": True}],
                    "defaultRule": {"bundleIdentifier": "*"}}


class Tray:
    """What holds for both kinds; a kind knows how to start its tray and how an application shows an icon there."""

    def start_subject_with_icon(self, ambrel):
        subject = self.start_subject(ambrel)
        self.show_icon(subject)
        return subject

    def close_and_wait_until_hidden(self, ambrel, subject):
        begin = len(ambrel.lines)
        subject.say("destroy 1")
        ambrel.wait_for(f"{SUBJECT} is hidden", after=begin)

    def test_application_with_an_icon_is_left_alone(self):
        self.start_tray()
        ambrel = self.start_ambrel(defaults={"quitDelay": 0.0})
        subject = self.start_subject_with_icon(ambrel)
        self.close_and_wait_until_hidden(ambrel, subject)
        self.check_left_alone(ambrel, subject)

    def test_application_with_an_icon_is_quit_where_its_rule_says_so(self):
        self.start_tray()
        ambrel = self.start_ambrel(rules=QUIT_WHEN_HIDDEN)
        subject = self.start_subject_with_icon(ambrel)
        self.wait_until_settled(subject)
        subject.say("destroy 1")
        subject.wait_for_end()
        wait_until(lambda: ("hidden", "terminated", subject.pid) in
                   [(each.path, each.action, each.pid) for each in ambrel.decisions()], "the decision is recorded")

    def test_icon_that_was_there_before_ambrel(self):
        self.start_tray()
        subject = self.start_sample()
        subject.open()
        self.show_icon(subject)
        ambrel = self.start_ambrel()
        self.wait_until_attached(ambrel, subject)
        self.close_and_wait_until_hidden(ambrel, subject)
        self.check_left_alone(ambrel, subject)

    def test_losing_the_icon_is_no_reason_to_quit(self):
        self.start_tray()
        ambrel = self.start_ambrel()
        subject = self.start_subject_with_icon(ambrel)
        self.close_and_wait_until_hidden(ambrel, subject)
        self.hide_icon(subject)
        self.check_left_alone(ambrel, subject)
        subject.open()
        ambrel.wait_for(f"{SUBJECT} windows 0->1 ")
        subject.say("close 2")
        self.wait_until_quit(ambrel, subject)

    def test_tray_that_comes_late_and_restarts(self):
        ambrel, subject = self.start_with_subject()
        for number in (1, 2):
            tray = self.start_tray()
            self.show_icon(subject)
            begin = len(ambrel.lines)
            subject.say(f"destroy {number}")
            ambrel.wait_for(f"{SUBJECT} is hidden", after=begin)
            tray.stop()
            self.forget_icon(subject)
            self.check_left_alone(ambrel, subject)
            subject.open()
            ambrel.wait_for(f"{SUBJECT} windows 0->1 ", after=begin)
        subject.say("destroy 3")
        self.wait_until_quit(ambrel, subject)

    def test_icon_of_another_application_protects_nobody(self):
        self.start_tray()
        ambrel = self.start_ambrel()
        other, subject = self.start_subject_with_icon(ambrel), self.start_subject(ambrel)
        subject.say("destroy 1")
        self.wait_until_quit(ambrel, subject)
        self.assertTrue(other.is_running())


class EmbeddedIcons(Tray, DesktopTest):
    def start_tray(self):
        return self.start("trayer")

    def show_icon(self, sample):
        wait_until(lambda: self.ask_for_docking(sample), "there is a tray")
        sample.wait_for(re.compile("^docked$"), after=self.asked)

    def ask_for_docking(self, sample):
        self.asked = len(sample.lines)
        sample.say("dock-icon")
        return sample.wait_for(re.compile("^(asked to be docked|no tray)$"), after=self.asked).text != "no tray"

    def hide_icon(self, sample):
        sample.say("undock-icon")
        sample.say("roundtrip")
        sample.wait_for("answered")

    def forget_icon(self, sample):
        self.hide_icon(sample)


class NotifierItems(Tray, DesktopTest):
    def start_tray(self):
        watcher = self.start("/usr/bin/python3", "-B", str(pathlib.Path(__file__).with_name("sni_watcher.py")),
                             name="watcher")
        watcher.wait_for("watching")
        self.watcher = watcher
        return watcher

    def show_icon(self, sample):
        begin = len(sample.lines)
        sample.say("register-item")
        sample.wait_for("item registered", after=begin)

    def hide_icon(self, sample):
        sample.say("unregister-item")
        self.watcher.wait_for("unregistered")

    def forget_icon(self, sample):
        pass


if __name__ == "__main__":
    desktop_test.main()
