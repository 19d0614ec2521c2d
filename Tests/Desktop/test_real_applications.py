"""Applications that nobody wrote for this test, with the desktop entries they were packaged with."""
import re
import subprocess

import desktop_test
import windows
from desktop_test import DesktopTest
from programs import wait_until


class RealApplications(DesktopTest):
    def open_emacs(self):
        emacs = self.start("emacs", "--fg-daemon")
        wait_until(lambda: self.ask_emacs("--eval", "t"), "Emacs answers", 30)
        return emacs

    def ask_emacs(self, *arguments):
        return subprocess.run(["emacsclient", *arguments], capture_output=True, check=False).returncode == 0

    def check_quit_with_its_window(self, program, window_class, open_window):
        ambrel = self.start_ambrel()
        open_window()
        window = windows.wait_for_window(wm_class=window_class)
        self.wait_until_attached(ambrel, program)
        windows.close(window)
        self.wait_until_quit(ambrel, program)

    def test_emacs_daemon(self):
        emacs = self.open_emacs()
        self.check_quit_with_its_window(emacs, "emacs.emacs", lambda: self.ask_emacs("--no-wait", "--create-frame"))

    def test_terminal_daemon(self):
        daemon = self.start("urxvtd", "--quiet", "--opendisplay")
        wait_until(lambda: self.open_terminal("-e", "true"), "the terminal daemon answers")
        self.check_quit_with_its_window(daemon, "urxvt.urxvt", self.open_terminal)

    def open_terminal(self, *arguments):
        return subprocess.run(["urxvtc", *arguments], capture_output=True, check=False).returncode == 0

    def test_second_frame_of_emacs_holds_back(self):
        emacs = self.open_emacs()
        ambrel = self.start_ambrel()
        for _ in range(2):
            self.ask_emacs("--no-wait", "--create-frame")
        wait_until(lambda: len(windows.windows(emacs.pid)) == 2, "two frames are open")
        ambrel.wait_for(re.compile(rf"(pid {emacs.pid} windows=2|windows 1->2) .*aboveThreshold=true"))
        windows.close(windows.windows(emacs.pid)[0])
        ambrel.wait_for("windows 2->1")
        self.check_left_alone(ambrel, emacs)
        windows.close(windows.windows(emacs.pid)[0])
        self.wait_until_quit(ambrel, emacs)

    def test_file_manager_is_never_quit(self):
        thunar = self.start("thunar", "--daemon")
        ambrel = self.start_ambrel()
        subprocess.run(["thunar", self.folder], check=True, capture_output=True)
        windows.close(windows.wait_for_window(pid=thunar.pid))
        wait_until(lambda: not windows.windows(thunar.pid), "its window is gone")
        self.check_left_alone(ambrel, thunar)


if __name__ == "__main__":
    desktop_test.main()
