"""The fixture of the desktop tests: programs that end with their test, and a verdict on Ambrel's own words."""
import os
import pathlib
import re
import signal
import sys
import tempfile
import time
import unittest
import xml.etree.ElementTree as xml

from ambrel import Ambrel
from programs import Program, wait_until
from sample import Sample, install_entry

SUBJECT, CANARY = "ambrel-subject", "ambrel-canary"


class DesktopTest(unittest.TestCase):
    """An error or fault line that the test has not declared in `expected_complaints` fails it."""

    def setUp(self):
        self.programs = []
        self.expected_complaints = []
        folder = tempfile.TemporaryDirectory(prefix="test.")
        self.addCleanup(folder.cleanup)
        self.folder = folder.name
        for name in (SUBJECT, CANARY):
            install_entry(name)

    def tearDown(self):
        instances = [program for program in self.programs if isinstance(program, Ambrel)]
        for program in reversed(self.programs):
            if program not in instances:
                program.stop()
        for program in instances:
            program.stop()
        self.check(instances)

    def check(self, instances):
        complaints = [line for program in instances for line in program.complaints()
                      if not any(re.search(expected, line) for expected in self.expected_complaints)]
        self.assertEqual([], complaints)

    def run(self, result=None):
        failures = len(result.failures) + len(result.errors)
        super().run(result)
        if len(result.failures) + len(result.errors) > failures:
            print(f"--- {self.id()}", *(program.transcript() for program in self.programs), sep="\n", file=sys.stderr)

    def keep(self, program):
        self.programs.append(program)
        return program

    def start_ambrel(self, **arguments):
        return self.keep(Ambrel(self.folder, **arguments)).wait_for_start()

    def start(self, *command, name=None):
        return self.keep(Program(list(command), name=name))

    def start_sample(self, name=SUBJECT, *options):
        return self.keep(Sample(name, *options))

    def start_subject(self, ambrel):
        """A sample with one window that Ambrel knows of."""
        subject = self.start_sample()
        subject.open()
        self.wait_until_attached(ambrel, subject)
        return subject

    def start_with_subject(self, **arguments):
        ambrel = self.start_ambrel(**arguments)
        return ambrel, self.start_subject(ambrel)

    def wait_until_attached(self, ambrel, program, count=1):
        ambrel.wait_for(f"pid {program.pid} windows={count} aboveThreshold=true")

    def wait_until_settled(self, program):
        """Until hiding counts: an application that hides in its first three seconds was started that way."""
        wait_until(lambda: time.monotonic() - program.start_time > 3.1, f"{program.name} is no longer starting")

    def wait_until_quit(self, ambrel, program):
        ambrel.wait_for(re.compile(rf"engine: quitting \S+ pid {program.pid} \(windows=0\)$"))
        program.wait_for_end()
        self.wait_for_decision(ambrel, "terminated", program)

    def wait_for_decision(self, ambrel, action, program):
        """Decisions are written beside the main thread: they may come later than their consequences."""
        wait_until(lambda: ("last-window", action, program.pid) in
                   [(decision.path, decision.action, decision.pid) for decision in ambrel.decisions()],
                   f"{action} is recorded of {program.name}")

    def close_without_quit(self, ambrel, action):
        """Closes the only window of a new sample, which is taken down as `action` and survives."""
        subject = self.start_subject(ambrel)
        subject.say("destroy 1")
        self.wait_for_decision(ambrel, action, subject)
        self.assertIsNone(ambrel.find(f"scheduling quit of {SUBJECT} pid {subject.pid} "))
        return subject

    def freeze(self, pid):
        """Stopped, not ended; the test's end wakes it."""
        os.kill(pid, signal.SIGSTOP)
        self.addCleanup(lambda: os.path.exists(f"/proc/{pid}") and os.kill(pid, signal.SIGCONT))

    def check_left_alone(self, ambrel, *programs):
        """By the time a later application has been quit, an earlier one would have been."""
        canary = self.start_sample(CANARY)
        canary.open()
        self.wait_until_attached(ambrel, canary)
        canary.say("destroy 1")
        self.wait_until_quit(ambrel, canary)
        for program in programs:
            self.assertTrue(program.is_running(), f"{program.name} is gone")
            self.assertIsNone(program.find("sigterm"))
            self.assertIsNone(ambrel.find(f" pid {program.pid} (windows="))
        pids = {program.pid for program in programs}
        self.assertEqual([], [decision for decision in ambrel.decisions()
                              if decision.action == "terminated" and decision.pid in pids])


def main():
    """Runs the tests of the calling file; leaves a count of them where $AMBREL_TEST_REPORT says."""
    program = unittest.main(module="__main__", exit=False, verbosity=2)
    result = program.result
    report = os.environ.get("AMBREL_TEST_REPORT")
    if report:
        pathlib.Path(report).parent.mkdir(parents=True, exist_ok=True)
        xml.ElementTree(xml.Element("testsuites", tests=str(result.testsRun), skipped=str(len(result.skipped)),
                                    failures=str(len(result.failures)), errors=str(len(result.errors)))).write(report)
    sys.exit(0 if result.wasSuccessful() else 1)
