"""What a notification daemon shows after a quit, and the way back from it."""
import os
import re
import signal
import subprocess

import desktop_test
import windows
from desktop_test import SUBJECT, DesktopTest
from dunst import Dunst
from programs import wait_until
from sample import SAMPLE, install_entry

TITLE = f"Ambrel Quit {SUBJECT}"
BODY = "Its last window closed. Click Reopen if that wasn't what you wanted."
# What is reopened inherits Ambrel's output.
OPENS_A_WINDOW = f'sh -c "exec {SAMPLE} --class {SUBJECT} {SUBJECT.capitalize()} open >/dev/null 2>&1"'


class Notifications(DesktopTest):
    def setUp(self):
        super().setUp()
        install_entry(SUBJECT, OPENS_A_WINDOW)

    def start_ambrel(self, **arguments):
        return super().start_ambrel(defaults={"notifyOnQuit": True}, **arguments)

    def start_dunst(self):
        return self.keep(Dunst(self.folder))

    def quit_subject(self, ambrel):
        subject = self.start_subject(ambrel)
        subject.say("destroy 1")
        self.wait_until_quit(ambrel, subject)

    def wait_until_reopened(self, ambrel, wm_class=f"{SUBJECT}.{SUBJECT}"):
        """The application's new window; its process ends with the test."""
        window = windows.wait_for_window(wm_class=wm_class)
        self.addCleanup(self.end, window.pid)
        ambrel.wait_for(f"pid {window.pid} windows=1 aboveThreshold=true", seconds=30)
        return window

    @staticmethod
    def end(pid):
        try:
            os.kill(pid, signal.SIGKILL)
        except ProcessLookupError:
            pass

    def test_click_and_button_reopen(self):
        dunst = self.start_dunst()
        ambrel = self.start_ambrel()
        ambrel.wait_for("notify: notification authorization: granted (provisional)")
        self.quit_subject(ambrel)
        dunst.wait_for_notification()
        dunst.click()
        window = self.wait_until_reopened(ambrel)
        self.assertEqual([(TITLE, BODY)], dunst.close_all())

        windows.close(window)
        ambrel.wait_for(re.compile(rf"engine: quitting \S+ pid {window.pid} \(windows=0\)$"))
        dunst.wait_for_notification()
        dunst.choose("AMBREL_REOPEN")
        self.assertNotEqual(window.pid, self.wait_until_reopened(ambrel).pid)
        self.assertEqual(2, ambrel.count(f"notify: Reopen tapped — relaunching {SUBJECT}.desktop"))
        self.assertEqual([(TITLE, BODY)] * 2, dunst.close_all())

    def test_closing_it_reopens_nothing(self):
        dunst = self.start_dunst()
        ambrel = self.start_ambrel()
        self.quit_subject(ambrel)
        dunst.wait_for_notification()
        dunst.close_all()
        self.check_left_alone(ambrel)
        self.assertEqual([], windows.windows())
        self.assertEqual(0, ambrel.count("Reopen tapped"))

    def test_emacs_comes_back(self):
        dunst = self.start_dunst()
        emacs = self.start("emacs", "--fg-daemon", "--no-init-file")
        client = ["emacsclient", "--eval", "t"]
        wait_until(lambda: subprocess.run(client, capture_output=True, check=False).returncode == 0, "Emacs answers", 30)
        ambrel = self.start_ambrel()
        subprocess.run(["emacsclient", "--no-wait", "--create-frame"], check=True, capture_output=True)
        window = windows.wait_for_window(wm_class="emacs.emacs")
        self.wait_until_attached(ambrel, emacs)
        windows.close(window)
        self.wait_until_quit(ambrel, emacs)
        dunst.wait_for_notification()
        dunst.click()
        self.wait_until_reopened(ambrel, "emacs.emacs")
        self.assertEqual([("Ambrel Quit Emacs (GUI)", BODY)], dunst.close_all())

    def test_restarted_daemon(self):
        first = self.start_dunst()
        ambrel = self.start_ambrel()
        self.quit_subject(ambrel)
        first.wait_for_notification()
        first.stop()
        second = self.start_dunst()
        self.quit_subject(ambrel)
        second.wait_for_notification()
        second.click()
        self.wait_until_reopened(ambrel)
        self.assertEqual(1, ambrel.count("Reopen tapped"))

    def test_daemon_without_buttons(self):
        daemon = self.start("/usr/bin/python3", "-m", "dbusmock", "--template", "notification_daemon", name="daemon")
        names = ["dbus-send", "--print-reply", "--dest=org.freedesktop.DBus", "/", "org.freedesktop.DBus.ListNames"]
        wait_until(lambda: "org.freedesktop.Notifications" in subprocess.run(
            names, capture_output=True, text=True, check=False).stdout, "the daemon is there")
        ambrel = self.start_ambrel()
        self.quit_subject(ambrel)
        daemon.wait_for(f'Notify "Ambrel" 0 "app.ambrel.Ambrel" "{TITLE}" "{BODY}" [] ')
        # Before the daemon, whose end would be a failure while Ambrel waits for its answer.
        ambrel.stop()

    def test_no_daemon(self):
        self.expected_complaints = ["error notify: notification add failed: "]
        ambrel = self.start_ambrel()
        ambrel.wait_for("notify: notification authorization: denied")
        self.quit_subject(ambrel)
        ambrel.wait_for(re.compile(r"notification add failed: .*org\.freedesktop\.Notifications"))
        dunst = self.start_dunst()
        self.quit_subject(ambrel)
        dunst.wait_for_notification()

    def test_application_that_stays(self):
        dunst = self.start_dunst()
        ambrel = self.start_ambrel()
        subject = self.start_subject(ambrel)
        subject.say("ignore-term")
        subject.say("destroy 1")
        ambrel.wait_for(f"notify: {SUBJECT} (pid {subject.pid}) still running 5s after terminate — "
                        "suppressing quit notification")
        self.assertEqual(1, subject.count("sigterm"))
        self.assertEqual([], dunst.close_all())


if __name__ == "__main__":
    desktop_test.main()
