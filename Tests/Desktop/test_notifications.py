"""What a notification daemon shows after a quit, and the way back from it."""
import json
import os
import pathlib
import re
import signal
import subprocess

import desktop_test
import windows
from desktop_test import SUBJECT, DesktopTest
from programs import wait_until
from sample import SAMPLE, install_entry

CONTENT = (f"Ambrel Quit {SUBJECT}", "Its last window closed. Click Reopen if that wasn't what you wanted.")
# What is reopened inherits Ambrel's output.
OPENS_A_WINDOW = f'sh -c "exec {SAMPLE} --class {SUBJECT} {SUBJECT.capitalize()} open >/dev/null 2>&1"'


def control(*arguments):
    """What dunst says to its user's command; empty where it isn't there."""
    return subprocess.run(["dunstctl", *arguments], capture_output=True, text=True, check=False).stdout.strip()


def wait_for_notification(count=1):
    wait_until(lambda: control("count", "displayed") == str(count), f"{count} notification(s) on screen")


class Notifications(DesktopTest):
    def setUp(self):
        super().setUp()
        install_entry(SUBJECT, OPENS_A_WINDOW)

    def start_dunst(self):
        configuration = pathlib.Path(self.folder, "dunstrc")
        configuration.write_text("[global]\n    markup = full\n    timeout = 0\n")
        self.start("dunst", "-config", str(configuration))
        wait_until(lambda: control("count", "displayed"), "dunst answers")

    def quit_subject(self, ambrel):
        subject = self.start_subject(ambrel)
        subject.say("destroy 1")
        self.wait_until_quit(ambrel, subject)

    def wait_until_reopened(self, ambrel):
        """The application's new window; its process ends with the test."""
        window = windows.wait_for_window(wm_class=f"{SUBJECT}.{SUBJECT}")
        self.addCleanup(lambda: windows.windows(window.pid) and os.kill(window.pid, signal.SIGKILL))
        ambrel.wait_for(f"pid {window.pid} windows=1 aboveThreshold=true", seconds=30)
        return window

    def test_each_click_reopens(self):
        self.start_dunst()
        ambrel = self.start_ambrel(defaults={"notifyOnQuit": True})
        ambrel.wait_for("notify: notification authorization: granted (provisional)")
        self.quit_subject(ambrel)
        wait_for_notification()
        control("action")
        control("close-all")
        window = self.wait_until_reopened(ambrel)
        windows.close(window)
        ambrel.wait_for(re.compile(rf"engine: quitting \S+ pid {window.pid} \(windows=0\)$"))
        wait_for_notification()
        control("action")
        self.assertNotEqual(window.pid, self.wait_until_reopened(ambrel).pid)
        self.assertEqual(2, ambrel.count(f"notify: Reopen tapped — relaunching {SUBJECT}.desktop"))
        control("close-all")
        wait_for_notification(0)
        entries, = json.loads(control("history"))["data"]
        self.assertEqual([CONTENT] * 2, [(entry["summary"]["data"], entry["body"]["data"]) for entry in entries])

    def test_daemon_that_comes_late(self):
        self.expected_complaints = ["error notify: notification add failed: "]
        ambrel = self.start_ambrel(defaults={"notifyOnQuit": True})
        ambrel.wait_for("notify: notification authorization: denied")
        self.quit_subject(ambrel)
        ambrel.wait_for(re.compile(r"notification add failed: .*org\.freedesktop\.Notifications"))
        self.start_dunst()
        self.quit_subject(ambrel)
        wait_for_notification()


if __name__ == "__main__":
    desktop_test.main()
