"""Applications that lie, hang, refuse or throw windows about."""
import os
import re
import signal

import desktop_test
import windows
from desktop_test import SUBJECT, DesktopTest
from programs import wait_until


class HardCases(DesktopTest):
    def test_a_false_identity_protects_everyone(self):
        ambrel = self.start_ambrel()
        victim = self.start_subject(ambrel)
        liars = [self.start_sample(SUBJECT, *options) for options in (
            ("--pid", str(victim.pid)), ("--pid", "1"), ("--pid", "4194304"), ("--machine", "elsewhere.example"))]
        for liar in liars:
            liar.open()
            liar.say("destroy 1")
            liar.wait_for(re.compile("destroyed$"))
        self.check_left_alone(ambrel, victim, *liars)

    def test_honest_application_without_a_pid_property_is_quit(self):
        ambrel = self.start_ambrel()
        subject = self.start_sample(SUBJECT, "--no-pid")
        subject.open()
        self.wait_until_attached(ambrel, subject)
        subject.say("destroy 1")
        self.wait_until_quit(ambrel, subject)

    def test_stopped_application_holds_nobody_up(self):
        ambrel = self.start_ambrel()
        subject = self.start_subject(ambrel)
        window = windows.windows(subject.pid)[0]
        subject.say("freeze")
        subject.wait_for("frozen")
        windows.close(window)
        self.check_left_alone(ambrel, subject)
        subject.signal(signal.SIGCONT)
        self.wait_until_quit(ambrel, subject)

    def test_refusal_is_final(self):
        ambrel = self.start_ambrel()
        subject = self.start_subject(ambrel)
        subject.say("ignore-term")
        subject.say("close 1")
        subject.wait_for("sigterm")
        begin = len(subject.lines)
        other = self.start_subject(ambrel)
        other.say("close 1")
        self.wait_until_quit(ambrel, other)
        self.assertTrue(subject.is_running())
        self.assertIsNone(subject.find("sigterm", after=begin))

    def test_window_that_refuses_to_close_holds_back(self):
        ambrel = self.start_ambrel()
        subject = self.start_subject(ambrel)
        subject.say("ignore-delete")
        subject.say("close 1")
        subject.wait_for("delete-request")
        self.check_left_alone(ambrel, subject)

    def test_only_the_process_with_the_window_is_quit(self):
        ambrel = self.start_ambrel()
        subject = self.start_subject(ambrel)
        subject.say("fork")
        child = int(subject.wait_for(re.compile(r"^child \d+")).text.split()[1])
        subject.say("close 1")
        self.wait_until_quit(ambrel, subject)
        self.assertIn("ambrel-sample", os.readlink(f"/proc/{child}/exe"))
        os.kill(child, signal.SIGTERM)

    def test_storm_of_windows(self):
        ambrel = self.start_ambrel()
        subject = self.start_subject(ambrel)
        for _ in range(5):
            begin = len(subject.lines)
            subject.say("storm 200")
            subject.wait_for("storm over", after=begin)
        self.check_left_alone(ambrel, subject)
        subject.say("close 1")
        self.wait_until_quit(ambrel, subject)

    def test_all_windows_gone_at_once(self):
        ambrel = self.start_ambrel()
        subject = self.start_sample()
        for _ in range(20):
            subject.open()
        wait_until(lambda: len(windows.windows(subject.pid)) == 20, "all windows are managed")
        ambrel.wait_for(re.compile(r"(windows=20|->20) .*aboveThreshold=true"))
        subject.process.stdin.write("".join(f"destroy {number}\n" for number in range(1, 21)))
        subject.process.stdin.flush()
        self.wait_until_quit(ambrel, subject)

    def test_enormous_properties(self):
        ambrel = self.start_ambrel()
        unknown = self.start_sample("x" * 60000)
        known = self.start_sample()
        for sample in (unknown, known):
            sample.open("open " + "\N{ROCKET}" * 12000)
        self.wait_until_attached(ambrel, known)
        for sample in (unknown, known):
            sample.say("destroy 1")
        self.wait_until_quit(ambrel, known)
        self.check_left_alone(ambrel, unknown)


if __name__ == "__main__":
    desktop_test.main()
