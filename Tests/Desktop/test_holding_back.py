"""When Ambrel must keep its hands off, and goes on as before afterwards."""
import re

import desktop_test
import windows
from desktop_test import SUBJECT, DesktopTest
from programs import wait_until


class HoldingBack(DesktopTest):
    def test_quits_with_the_last_window(self):
        ambrel = self.start_ambrel()
        subject = self.start_subject(ambrel)
        subject.say("close 1")
        self.wait_until_quit(ambrel, subject)
        self.assertEqual(1, subject.count("sigterm"))
        decision, = ambrel.decisions()
        self.assertEqual((SUBJECT, SUBJECT, "windows=0"), (decision.bundle, decision.name, decision.detail))

    def test_second_window_holds_back(self):
        ambrel = self.start_ambrel()
        subject = self.start_subject(ambrel)
        subject.open()
        ambrel.wait_for(f"{SUBJECT} windows 1->2 ")
        subject.say("close 1")
        ambrel.wait_for(f"{SUBJECT} windows 2->1 ")
        self.check_left_alone(ambrel, subject)
        subject.say("close 2")
        self.wait_until_quit(ambrel, subject)

    def test_dialog_holds_back_until_it_is_closed(self):
        ambrel = self.start_ambrel()
        subject = self.start_subject(ambrel)
        subject.open("dialog")
        subject.say("destroy 1")
        ambrel.wait_for(f"{SUBJECT} — AX says 0 but the window server sees 1 window(s); vetoing quit (AX artifact)")
        self.assertTrue(subject.is_running())
        self.wait_for_decision(ambrel, "skipped(cg-windows-exist)", subject)
        subject.say("destroy 2")
        self.wait_until_quit(ambrel, subject)

    def minimise(self, subject):
        window = windows.windows(subject.pid)[0]
        subject.say("minimise 1")
        wait_until(lambda: windows.is_hidden(window), "the window is minimised")

    def test_minimised_window_holds_back(self):
        ambrel = self.start_ambrel()
        subject = self.start_subject(ambrel)
        self.minimise(subject)
        self.check_left_alone(ambrel, subject)

    def test_window_closed_right_after_minimising_holds_back(self):
        ambrel = self.start_ambrel()
        subject = self.start_subject(ambrel)
        self.minimise(subject)
        subject.say("destroy 1")
        ambrel.wait_for(f"skip quit: {SUBJECT} minimized within 2s grace")
        self.check_left_alone(ambrel, subject)

    def test_withdrawn_window_holds_back(self):
        ambrel = self.start_ambrel()
        subject = self.start_subject(ambrel)
        subject.say("withdraw 1")
        subject.wait_for(re.compile("unmapped$"))
        self.check_left_alone(ambrel, subject)

    def test_window_reopened_during_the_delay_cancels(self):
        ambrel = self.start_ambrel(defaults={"quitDelay": 2.0})
        subject = self.start_subject(ambrel)
        subject.say("close 1")
        ambrel.wait_for(f"scheduling quit of {SUBJECT} pid {subject.pid} in 2.000000s")
        subject.open()
        ambrel.wait_for(f"cancelled pending quit pid {subject.pid}")
        self.check_left_alone(ambrel, subject)

    def test_application_that_never_had_a_window_is_left_alone(self):
        subject = self.start_sample()
        subject.open("dialog")
        subject.say("destroy 1")
        ambrel = self.start_ambrel()
        self.check_left_alone(ambrel, subject)

    def test_rule_holds_back(self):
        subject = self.start_sample()
        subject.open()
        ambrel = self.start_ambrel(defaults={"userExcludedBundleIDs": [SUBJECT]})
        subject.say("close 1")
        self.check_left_alone(ambrel, subject)

    def test_paused(self):
        ambrel = self.start_ambrel(defaults={"isPaused": True})
        subject = self.start_subject(ambrel)
        other = self.start_subject(ambrel)
        for sample in (subject, other):
            begin = len(ambrel.lines)
            sample.say("close 1")
            ambrel.wait_for(f"{SUBJECT} windows 1->0 ", after=begin)
        self.assertIsNone(ambrel.find("scheduling quit"))
        self.assertEqual([], ambrel.decisions())

    def test_guards(self):
        for variable, line, action in (
                ("AMBREL_SHADOW_MODE", "SHADOW: would have terminated {} — skipped (shadow mode)",
                 "skipped(shadow-mode)"),
                ("AMBREL_DEV_MODE", "DEV_MODE: would have quit {} — skipped", "skipped(dev-mode)")):
            with self.subTest(variable):
                ambrel = self.start_ambrel(environment={variable: "1"})
                subject = self.start_subject(ambrel)
                subject.say("close 1")
                ambrel.wait_for(line.format(SUBJECT))
                ambrel.stop()
                self.assertTrue(subject.is_running())
                self.assertEqual(action, ambrel.decisions()[-1].action)
                subject.stop()


if __name__ == "__main__":
    desktop_test.main()
