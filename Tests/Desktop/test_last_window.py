"""The last window of an application closes, or only seems to; applications lie, hang and refuse meanwhile."""
import re
import signal
import subprocess
import unittest

import desktop_test
import windows
from desktop_test import SUBJECT, DesktopTest
from programs import wait_until


class LastWindow(DesktopTest):
    def test_quits(self):
        ambrel, subject = self.start_with_subject()
        subject.say("close 1")
        self.wait_until_quit(ambrel, subject)
        self.assertEqual(1, subject.count("sigterm"))
        decision, = ambrel.decisions()
        self.assertEqual((SUBJECT, SUBJECT, "windows=0"), (decision.bundle, decision.name, decision.detail))

    def test_what_is_not_closed_holds_back(self):
        ambrel, second = self.start_with_subject()
        second.open()
        ambrel.wait_for(f"{SUBJECT} windows 1->2 ")
        second.say("close 1")
        ambrel.wait_for(f"{SUBJECT} windows 2->1 ")
        withdrawn = self.start_subject(ambrel)
        withdrawn.say("withdraw 1")
        withdrawn.wait_for(re.compile("unmapped$"))
        self.check_left_alone(ambrel, second, withdrawn)
        second.say("close 2")
        self.wait_until_quit(ambrel, second)

    @unittest.skipUnless(windows.CAN_MINIMISE, "this window manager minimises nothing")
    def test_what_is_or_was_minimised_holds_back(self):
        ambrel = self.start_ambrel()
        minimised, hasty = self.start_subject(ambrel), self.start_subject(ambrel)
        for subject in (minimised, hasty):
            window = windows.windows(subject.pid)[0]
            subject.say("minimise 1")
            wait_until(lambda: windows.is_hidden(window), "the window is minimised")
        hasty.say("destroy 1")
        ambrel.wait_for(f"skip quit: {SUBJECT} minimized within 2s grace")
        self.check_left_alone(ambrel, minimised, hasty)

    def test_dialog_holds_back_until_it_is_closed(self):
        ambrel, subject = self.start_with_subject()
        subject.open("dialog")
        subject.say("destroy 1")
        ambrel.wait_for(f"skip quit: {SUBJECT} has 1 open dialog(s)")
        self.check_left_alone(ambrel, subject)
        subject.say("destroy 2")
        self.wait_until_quit(ambrel, subject)

    def test_a_false_identity_protects_everyone(self):
        ambrel, victim = self.start_with_subject()
        liars = [self.start_sample(SUBJECT, *options) for options in (
            ("--pid", str(victim.pid)), ("--pid", "1"), ("--pid", "4194304"), ("--machine", "elsewhere.example"))]
        for liar in liars:
            liar.open()
            liar.say("destroy 1")
            liar.wait_for(re.compile("destroyed$"))
        self.check_left_alone(ambrel, victim, *liars)

    def test_stopped_application_holds_nobody_up(self):
        ambrel, subject = self.start_with_subject()
        window = windows.windows(subject.pid)[0]
        subject.say("freeze")
        subject.wait_for("frozen")
        windows.close(window)
        self.check_left_alone(ambrel, subject)
        subject.signal(signal.SIGCONT)
        self.wait_until_quit(ambrel, subject)

    def test_refusal_is_final(self):
        ambrel, subject = self.start_with_subject()
        subject.say("ignore-term")
        subject.say("close 1")
        subject.wait_for("sigterm")
        begin = len(subject.lines)
        self.check_left_alone(ambrel)
        self.assertTrue(subject.is_running())
        self.assertIsNone(subject.find("sigterm", after=begin))

    def test_a_question_about_unsaved_work_is_waited_for(self):
        ambrel, careful = self.start_with_subject()
        other = self.start_subject(ambrel)
        careful.say("confirm-on-delete")
        subprocess.run(["xdotool", "key", "super+alt+shift+q"], check=True)
        ambrel.wait_for("engine: Quit All: requested quit of 2 apps")
        careful.wait_for("delete-request")
        other.wait_for_end()
        wait_until(lambda: len(windows.windows(careful.pid)) == 2, "the question is on screen")
        # One without a question has been asked to end by now, and so would this one have been.
        self.assertTrue(careful.is_running())
        self.assertIsNone(careful.find("sigterm"))

    def test_window_that_reopens_during_the_delay(self):
        ambrel = self.start_ambrel(defaults={"quitDelay": 2.0})
        subject = self.start_subject(ambrel)
        subject.say("destroy 1")
        ambrel.wait_for(f"scheduling quit of {SUBJECT} pid {subject.pid} ")
        subject.open()
        ambrel.wait_for(f"cancelled pending quit pid {subject.pid}")
        self.check_left_alone(ambrel, subject)


if __name__ == "__main__":
    desktop_test.main()
