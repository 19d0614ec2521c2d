"""Applications that are not to be quit though their last window has gone, or not a second time: behind a dialog, at work,
playing, asked already."""
import pathlib
import subprocess

import desktop_test
from desktop_test import SUBJECT, DesktopTest
from services import Occupant


class Closing(DesktopTest):
    def start_occupant(self, *arguments):
        return self.keep(Occupant(*arguments))

    def test_small_dialog_on_another_workspace(self):
        ambrel, subject = self.start_with_subject()
        dialog = subject.open("dialog")
        subprocess.run(["xdotool", "windowsize", dialog, "40", "40"], check=True)
        subprocess.run(["wmctrl", "-i", "-r", dialog, "-t", "1"], check=True)
        subject.say("destroy 1")
        self.check_left_alone(ambrel, subject)
        subject.say("destroy 2")
        self.wait_until_quit(ambrel, subject)

    def test_application_that_saves_and_ends(self):
        ambrel, subject = self.start_with_subject()
        file = pathlib.Path(self.folder) / "saved"
        subject.say(f"save-on-exit {file}")
        subject.say("destroy 1")
        subject.wait_for("saving")
        ambrel.wait_for(f"quit check 2/2: {SUBJECT} is working (")
        self.assertEqual(0, subject.wait_for_end())
        self.assertIsNotNone(subject.find("saved"))
        self.assertIsNone(subject.find("sigterm"))
        self.assertGreater(file.stat().st_size, 4096)
        self.check_left_alone(ambrel)
        self.assertEqual([], [each for each in ambrel.decisions() if each.pid == subject.pid])

    def test_player_is_quit_when_it_stops(self):
        ambrel, subject = self.start_with_subject()
        player = self.start_occupant("player", "Playing", SUBJECT)
        subject.say("destroy 1")
        self.wait_for_decision(ambrel, "skipped(playing)", subject)
        self.check_left_alone(ambrel, subject)
        player.say("Paused")
        self.wait_until_quit(ambrel, subject)

    def test_window_that_becomes_a_dock_is_not_closed(self):
        ambrel, subject = self.start_with_subject()
        subject.say("retype 1 DOCK")
        self.check_left_alone(ambrel, subject)
        subject.say("destroy 1")
        self.wait_until_quit(ambrel, subject)

    def test_one_request_whoever_began_it(self):
        ambrel, subject = self.start_with_subject()
        subject.say("ignore-term")
        subprocess.run(["xdotool", "key", "super+alt+shift+q"], check=True)
        subject.wait_for("sigterm")
        self.check_left_alone(ambrel)
        self.assertEqual(1, subject.count("sigterm"))
        self.assertEqual([("quit-all", "terminated")], [(each.path, each.action) for each in ambrel.decisions()
                                                        if each.pid == subject.pid])

    def test_last_window_decides_what_a_withdrawn_one_means(self):
        ambrel, subject = self.start_with_subject()
        subject.open()
        ambrel.wait_for(f"{SUBJECT} windows 1->2 ")
        subject.say("withdraw 1")
        ambrel.wait_for(f"{SUBJECT} windows 2->1 ")
        # What leaves within a quarter of a second counts as leaving at once.
        self.check_left_alone(ambrel, subject)
        subject.say("destroy 2")
        self.wait_until_quit(ambrel, subject)
        hidden = self.start_subject(ambrel)
        self.wait_until_settled(hidden)
        hidden.say("withdraw 1")
        self.check_left_alone(ambrel, hidden)
        hidden.say("destroy 1")
        self.wait_until_quit(ambrel, hidden)


if __name__ == "__main__":
    desktop_test.main()
