"""Ambrel's own beginning and end, and those of the desktop below it."""
import os
import re
import signal
import subprocess

import desktop_test
import windows
from ambrel import Ambrel
from desktop_test import DesktopTest
from programs import wait_until


# Without a window manager no count can be read.
UNREADABLE = r"error monitor: read windows -> no window manager"


class Lifecycle(DesktopTest):
    def test_second_instance_goes_away(self):
        first = self.start_ambrel()
        second = self.keep(Ambrel(self.folder))
        self.expected_complaints = [
            rf"error lifecycle: found 1 other Ambrel instance\(s\): pid\(s\) {first.pid}$",
            "error lifecycle: another Ambrel instance is already running — this copy will terminate$"]
        second.wait_for_end()
        self.assertEqual(2, len(second.complaints()))
        for expected in self.expected_complaints:
            self.assertIsNotNone(second.find(re.compile(expected)))
        self.check_left_alone(first)

    def test_termination_loses_no_decision(self):
        ambrel = self.start_ambrel(defaults={"quitDelay": 0.0})
        samples = [self.start_subject(ambrel) for _ in range(8)]
        for sample in samples:
            sample.say("destroy 1")
        ambrel.wait_for("engine: quitting ")
        ambrel.signal(signal.SIGTERM)
        self.assertEqual(0, ambrel.wait_for_end())
        announced = {int(match[1]) for line in ambrel.lines
                     if (match := re.search(r"engine: quitting \S+ pid (\d+) ", line.text))}
        self.assertTrue(announced)
        self.assertEqual(announced, {decision.pid for decision in ambrel.decisions()})

    def test_place_in_the_task_bar(self):
        ambrel = self.start_ambrel(defaults={"showDockIcon": True})
        for _ in range(2):
            entry = windows.wait_for_window(pid=ambrel.pid)
            wait_until(lambda: windows.is_hidden(entry), "it is no more than a place in the task bar")
            windows.raise_window(entry)
            wait_until(lambda: entry not in windows.windows(ambrel.pid), "a real window takes its place")
            settings = windows.wait_for_window(pid=ambrel.pid)
            self.assertFalse(windows.is_hidden(settings))
            windows.close(settings)
            wait_until(lambda: settings not in windows.windows(ambrel.pid), "the settings are closed")

    def test_gate_stays_until_a_window_manager_comes(self):
        windows.end_window_manager()
        ambrel = self.keep(Ambrel(self.folder))
        ambrel.wait_for("Accessibility not granted; gate presented, polling for grant")
        windows.start_window_manager()
        ambrel.wait_for("Accessibility granted; starting engine")
        ambrel.wait_for_start()
        wait_until(lambda: not windows.windows(ambrel.pid), "the gate is gone")
        self.check_left_alone(ambrel)

    def test_window_manager_restarts(self):
        self.expected_complaints = [UNREADABLE]
        ambrel, subject = self.start_with_subject()
        windows.end_window_manager()
        windows.start_window_manager()
        wait_until(lambda: windows.windows(subject.pid), "the window is managed again")
        self.check_left_alone(ambrel, subject)
        subject.say("close 1")
        self.wait_until_quit(ambrel, subject)

    def test_window_closed_while_no_window_manager_runs(self):
        self.expected_complaints = [UNREADABLE]
        ambrel = self.start_ambrel()
        subject, bystander = self.start_subject(ambrel), self.start_subject(ambrel)
        windows.end_window_manager()
        subject.say("destroy 1")
        subject.wait_for(re.compile("destroyed$"))
        windows.start_window_manager()
        wait_until(lambda: windows.windows(bystander.pid), "the other window is managed again")
        self.check_left_alone(ambrel, subject, bystander)

    def test_end_of_the_x_server(self):
        reader, writer = os.pipe()
        server = subprocess.Popen(["Xvfb", "-displayfd", str(writer), "-nolisten", "tcp", "-noreset"],
                                  pass_fds=[writer], stderr=subprocess.DEVNULL)
        self.addCleanup(server.wait)
        self.addCleanup(server.kill)
        os.close(writer)
        with os.fdopen(reader) as answer:
            display = f":{answer.readline().strip()}"
        manager = subprocess.Popen(["openbox", "--sm-disable"], env={**os.environ, "DISPLAY": display},
                                   stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        self.addCleanup(manager.wait)
        wait_until(lambda: subprocess.run(["wmctrl", "-m"], env={**os.environ, "DISPLAY": display}, check=False,
                                          capture_output=True).returncode == 0, "the window manager is there")
        ambrel = self.start_ambrel(environment={"DISPLAY": display})
        # The toolkit may notice it first, and say so in words of its own.
        self.expected_complaints = ["error lifecycle: ", "The X11 connection broke", "X connection to .* broken"]
        server.kill()
        self.assertNotIn(ambrel.wait_for_end(), (0, -signal.SIGABRT, -signal.SIGSEGV))
        said = [complaint for complaint in ambrel.complaints() if "connection to the X server lost" in complaint]
        self.assertEqual(1, len(said))


if __name__ == "__main__":
    desktop_test.main()
