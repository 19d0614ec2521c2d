"""What a notification daemon shows after a quit, and the way back from it."""
import os
import re
import signal

import desktop_test
import windows
from desktop_test import SUBJECT, DesktopTest
from dunst import Dunst
from sample import SAMPLE, install_entry

CONTENT = (f"Ambrel Quit {SUBJECT}", "Its last window closed. Click Reopen if that wasn't what you wanted.")
# What is reopened inherits Ambrel's output.
OPENS_A_WINDOW = f'sh -c "exec {SAMPLE} --class {SUBJECT} {SUBJECT.capitalize()} open >/dev/null 2>&1"'


class Notifications(DesktopTest):
    def setUp(self):
        super().setUp()
        install_entry(SUBJECT, OPENS_A_WINDOW)

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

    def test_click_and_button_reopen(self):
        dunst = self.keep(Dunst(self.folder))
        ambrel = self.start_ambrel(defaults={"notifyOnQuit": True})
        ambrel.wait_for("notify: notification authorization: granted (provisional)")
        self.quit_subject(ambrel)
        dunst.wait_for_notification()
        dunst.click()
        window = self.wait_until_reopened(ambrel)
        self.assertEqual([CONTENT], dunst.close_all())

        windows.close(window)
        ambrel.wait_for(re.compile(rf"engine: quitting \S+ pid {window.pid} \(windows=0\)$"))
        dunst.wait_for_notification()
        dunst.choose("AMBREL_REOPEN")
        self.assertNotEqual(window.pid, self.wait_until_reopened(ambrel).pid)
        self.assertEqual(2, ambrel.count(f"notify: Reopen tapped — relaunching {SUBJECT}.desktop"))
        self.assertEqual([CONTENT] * 2, dunst.close_all())


if __name__ == "__main__":
    desktop_test.main()
