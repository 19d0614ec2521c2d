"""Applications that their own rules hide when they have not been in front for a while."""
import desktop_test
from desktop_test import CANARY, SUBJECT, DesktopTest
from programs import wait_until
from windows import activate

QUICK = {"AMBREL_IDLE_EVAL_INTERVAL": "0.2", "AMBREL_IDLE_THRESHOLD_SECONDS": "2"}
# Rules about idling that are older than this program's care for them are cleared once.
OPTED_IN = {"idleBehaviorResetForSafetyV1": True}


def rules(behavior):
    return {"rules": [{"bundleIdentifier": SUBJECT, "idleBehavior": behavior}], "defaultRule": {"bundleIdentifier": "*"}}


HIDES = f"idle: idle-hide {SUBJECT} (idle 2s)"


class Idle(DesktopTest):
    def test_rule_hides_every_window_and_only_once(self):
        ambrel = self.start_ambrel(defaults=OPTED_IN, environment=QUICK, rules=rules("hide"))
        subject = self.start_sample()
        window = subject.open()
        subject.open()
        self.wait_until_attached(ambrel, subject, 2)
        other = self.start_sample(CANARY).open()
        activate(window)
        activate(other)
        ambrel.wait_for(HIDES)
        wait_until(lambda: subject.count("unmapped") >= 2, "both windows are iconified")
        self.check_left_alone(ambrel, subject)
        self.assertEqual(["hidden"], [decision.action for decision in ambrel.decisions()
                                      if decision.pid == subject.pid])
        # Opened again by its user, it idles anew once it is left.
        begin = len(ambrel.lines)
        activate(window)
        activate(self.start_sample(CANARY).open())
        ambrel.wait_for(HIDES, after=begin)

    def test_rule_quits_with_its_windows_open(self):
        ambrel = self.start_ambrel(defaults=OPTED_IN, environment=QUICK, rules=rules("quit"))
        subject = self.start_subject(ambrel)
        activate(self.start_sample(CANARY).open())
        ambrel.wait_for(f"idle: idle-quit {SUBJECT} (idle 2s)")
        subject.wait_for_end()


if __name__ == "__main__":
    desktop_test.main()
