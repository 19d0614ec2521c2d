"""Applications that their own rules hide or quit when they have not been in front for a while."""
import re
import subprocess

import desktop_test
import windows
from desktop_test import CANARY, SUBJECT, DesktopTest
from programs import wait_until

QUICK = {"AMBREL_IDLE_EVAL_INTERVAL": "0.2", "AMBREL_IDLE_THRESHOLD_SECONDS": "2"}
# Rules about idling that are older than this program's care for them are cleared once.
OPTED_IN = {"idleBehaviorResetForSafetyV1": True}


def activate(window):
    subprocess.run(["wmctrl", "-i", "-a", window], check=True)


class Idle(DesktopTest):
    def start_with_rule(self, behavior):
        rules = [{"bundleIdentifier": SUBJECT, "idleBehavior": behavior}]
        return self.start_ambrel(defaults=OPTED_IN, environment=QUICK,
                                 rules={"rules": rules, "defaultRule": {"bundleIdentifier": "*"}})

    def start_idling_beside(self, ambrel, count=1):
        """The subject with its windows, sent to the back by another application."""
        subject = self.start_sample()
        opened = [subject.open() for _ in range(count)]
        self.wait_until_attached(ambrel, subject, count)
        other = self.start_sample(CANARY)
        window = other.open()
        activate(opened[0])
        activate(window)
        return subject, other, opened[0]

    def test_rule_quits_and_asks_once(self):
        ambrel = self.start_with_rule("quit")
        subject, other, _ = self.start_idling_beside(ambrel)
        subject.say("ignore-delete")
        line = re.compile(rf"idle: idle-quit {SUBJECT} \(idle (\d+)s\)$")
        seconds = int(line.search(ambrel.wait_for(line).text)[1])
        self.assertGreaterEqual(seconds, 2)
        subject.wait_for("delete-request")
        # It refuses, and is not asked again by itself, although many more turns go by.
        self.check_left_alone_once_asked(ambrel, subject)
        self.assertTrue(other.is_running())
        self.assertEqual([("idle", "terminated", subject.pid, f"idle={seconds}s")],
                         [(decision.path, decision.action, decision.pid, decision.detail)
                          for decision in ambrel.decisions() if decision.pid == subject.pid])

    def check_left_alone_once_asked(self, ambrel, subject):
        third = self.start_sample(CANARY)
        third.open()
        self.wait_until_attached(ambrel, third)
        self.wait_until_settled(third)
        self.assertEqual(1, subject.count("delete-request"))
        self.assertEqual(1, ambrel.count("idle-quit"))
        self.assertTrue(subject.is_running())

    def test_rule_hides_every_window_and_only_once(self):
        ambrel = self.start_with_rule("hide")
        subject, _, window = self.start_idling_beside(ambrel, 2)
        ambrel.wait_for(f"idle: idle-hide {SUBJECT} (idle 2s)")
        wait_until(lambda: subject.count("unmapped") >= 2, "both windows are iconified")
        self.check_left_alone(ambrel, subject)
        self.assertEqual(["hidden"], [decision.action for decision in ambrel.decisions()
                                      if decision.pid == subject.pid])
        # Opened again by its user, it idles anew once it is left.
        begin = len(ambrel.lines)
        activate(window)
        activate(self.start_sample(CANARY).open())
        ambrel.wait_for(f"idle: idle-hide {SUBJECT} (idle 2s)", after=begin)


if __name__ == "__main__":
    desktop_test.main()
