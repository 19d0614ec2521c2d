"""Applications that nobody wrote for this test, with the desktop entries they were packaged with."""
import subprocess

import desktop_test
import windows
from desktop_test import DesktopTest
from programs import wait_until


class RealApplications(DesktopTest):
    def ask_emacs(self, *arguments):
        return subprocess.run(["emacsclient", *arguments], capture_output=True, check=False).returncode == 0

    def test_emacs_daemon(self):
        emacs = self.start("emacs", "--fg-daemon", "--no-init-file")
        wait_until(lambda: self.ask_emacs("--eval", "t"), "Emacs answers", 30)
        ambrel = self.start_ambrel()
        self.ask_emacs("--no-wait", "--create-frame")
        window = windows.wait_for_window(wm_class="emacs.emacs")
        self.wait_until_attached(ambrel, emacs)
        windows.close(window)
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
