"""Quit All by its key combination, from the key to the applications."""
import re
import subprocess

import desktop_test
import windows
from desktop_test import CANARY, SUBJECT, DesktopTest
from programs import wait_until


class HotKey(DesktopTest):
    def start_with_hot_key(self):
        ambrel = self.start_ambrel()
        ambrel.wait_for("hotkey: registered global hotkey (keyCode 12)")
        return ambrel

    def press_and_wait(self, ambrel):
        begin = len(ambrel.lines)
        subprocess.run(["xdotool", "key", "super+alt+shift+q"], check=True)
        ambrel.wait_for(re.compile(r"engine: Quit All: requested quit of \d+ apps$"), after=begin)

    def test_every_eligible_application_is_asked(self):
        ambrel = self.start_with_hot_key()
        subject, other = self.start_subject(ambrel), self.start_sample(CANARY)
        for _ in range(2):
            other.open()
        self.wait_until_attached(ambrel, other, 2)
        thunar = self.start("thunar", self.folder)
        windows.wait_for_window(pid=thunar.pid)
        unknown = self.start_sample("nobody-knows-me")
        unknown.open()
        self.press_and_wait(ambrel)
        ambrel.wait_for("Quit All: requested quit of 2 apps")
        for sample in (subject, other):
            sample.wait_for_end()
        asked = [decision for decision in ambrel.decisions() if decision.path == "quit-all"]
        self.assertEqual([("terminated", subject.pid), ("terminated", other.pid)],
                         [(decision.action, decision.pid) for decision in asked])
        self.assertTrue(windows.windows(thunar.pid))
        self.assertTrue(windows.windows(unknown.pid))

    def test_a_question_about_unsaved_work_is_waited_for(self):
        ambrel = self.start_with_hot_key()
        careful, other = self.start_subject(ambrel), self.start_subject(ambrel)
        careful.say("confirm-on-delete")
        self.press_and_wait(ambrel)
        careful.wait_for("delete-request")
        other.wait_for_end()
        wait_until(lambda: len(windows.windows(careful.pid)) == 2, "the question is on screen")
        # One without a question has been asked to end by now, and so would this one have been.
        self.assertTrue(careful.is_running())
        self.assertIsNone(careful.find("sigterm"))
        self.assertEqual(2, len(windows.windows(careful.pid)))


if __name__ == "__main__":
    desktop_test.main()
