"""The road of a new user, from the first start to the second, by pointer and keyboard alone."""
import pathlib
import re
import subprocess

import desktop_test
import windows
from dunst import Dunst
from programs import wait_until
from screen_reader import ENVIRONMENT, ScreenReader, press, write
from tray_icon import TrayIconTest

TERMINAL, TERMINAL_NAME = "rxvt-unicode", "Rxvt Color Unicode Terminal"
# The desktop's text editor, for one who lets it run in the background.
EDITOR_ENTRY = """[Desktop Entry]
Type=Application
Name=Emacs
Exec=sh -c "exec emacsclient --alternate-editor= --create-frame >/dev/null 2>&1"
MimeType=text/plain;
StartupWMClass=Emacs
"""
DEFAULT_APPLICATIONS = "[Default Applications]\ntext/plain=emacs.desktop\n"


class NewUser(TrayIconTest):
    def setUp(self):
        super().setUp()
        entries = pathlib.Path.home() / ".local/share/applications"
        entries.mkdir(parents=True, exist_ok=True)
        (entries / "emacs.desktop").write_text(EDITOR_ENTRY)
        config = pathlib.Path(self.folder) / "config"
        config.mkdir()
        (config / "mimeapps.list").write_text(DEFAULT_APPLICATIONS)
        self.addCleanup(subprocess.run, ["emacsclient", "--eval", "(kill-emacs)"], capture_output=True, check=False)
        self.start_trayer()
        self.dunst = self.keep(Dunst(self.folder))

    def start_as_left(self):
        self.ambrel = self.start_ambrel(as_left=True, environment=ENVIRONMENT)
        self.screen_says = ScreenReader(self.ambrel.pid)

    def test_from_the_first_start_to_the_second(self):
        self.start_as_left()
        self.take_the_first_steps()
        self.open_settings()
        self.spare_the_terminal()
        self.let_the_terminal_be_quit()
        self.reopen_from_the_notification()
        self.read_the_history()
        self.pause_and_go_on()
        self.quit_all()
        self.start_again()

    def take_the_first_steps(self):
        says = self.screen_says
        says.find("You're set")
        says.click("Open TextEdit")
        editor = windows.wait_for_window(wm_class="emacs.emacs")
        says.find("TextEdit is open")
        self.ambrel.wait_for(f"pid {editor.pid} windows=1 aboveThreshold=true")
        windows.close(editor)
        says.find("Ambrel quit TextEdit for you.")
        self.ambrel.wait_for(re.compile(rf"engine: quitting com\.apple\.TextEdit pid {editor.pid} \(windows=0\)$"))
        says.click("Done")
        says.wait_until_gone("Done")
        self.dunst.wait_for_notification()
        self.dunst.close_all()

    def open_dropdown(self):
        (x, y, width, height), _pixels = self.wait_for_picture()
        self.screen.click(x + width // 2, y + height // 2)
        wait_until(self.dropdown, "the dropdown opens")

    def open_settings(self):
        self.open_dropdown()
        self.screen_says.click("Settings…")
        self.screen_says.click("Advanced…")
        self.screen_says.find("Hide Advanced")

    def open_terminal(self):
        """A window of the daemon; with its shell it doesn't end by itself."""
        wait_until(lambda: subprocess.run(["urxvtc"], capture_output=True, check=False).returncode == 0,
                   "the terminal daemon answers")
        return windows.wait_for_window(wm_class="urxvt.urxvt")

    def start_terminal(self):
        terminal = self.start("urxvtd", "--quiet", "--opendisplay")
        return terminal, self.open_terminal()

    def spare_the_terminal(self):
        says = self.screen_says
        says.click("App Rules")
        says.click("Add App…")
        says.find("Choose an application")
        write(TERMINAL)
        press("Return")
        says.wait_until_gone("Choose an application")
        says.click("Quit when the last window closes")
        self.terminal, window = self.start_terminal()
        windows.close(window)
        self.check_left_alone(self.ambrel, self.terminal)
        self.dunst.wait_for_notification()
        self.dunst.close_all()

    def let_the_terminal_be_quit(self):
        begin = len(self.ambrel.lines)
        self.screen_says.click("Quit when the last window closes")
        self.screen_says.click("Quit when hidden")
        self.ambrel.wait_for("reconcile (rules-changed): +1", after=begin)
        window = self.open_terminal()
        self.ambrel.wait_for("windows 0->1", after=begin)
        windows.close(window)
        self.wait_until_quit(self.ambrel, self.terminal)

    def reopen_from_the_notification(self):
        self.dunst.wait_for_notification()
        self.dunst.choose("AMBREL_REOPEN")
        window = windows.wait_for_window(wm_class="urxvt.urxvt")
        self.ambrel.wait_for(re.compile(rf"pid {window.pid} windows=1 aboveThreshold=true"))
        # What is shown lies over the tray.
        self.dunst.close_all()

    def read_the_history(self):
        self.screen_says.click("History")
        self.screen_says.find(re.compile(rf"{TERMINAL_NAME} — quit, .*"))

    def pause_and_go_on(self):
        self.open_dropdown()
        self.screen_says.click("Pause")
        self.ambrel.wait_for("pause state -> paused")
        self.screen_says.find("Paused — auto-quit off")
        begin = len(self.ambrel.lines)
        self.screen_says.click("Resume")
        self.ambrel.wait_for("pause state -> active", after=begin)
        press("Escape")

    def quit_all(self):
        self.screen_says.click("General")
        self.screen_says.reach("Confirm before Quit All")
        press("space")
        window = windows.wait_for_window(wm_class="urxvt.urxvt")
        self.open_dropdown()
        self.screen_says.click("Quit All Apps")
        self.screen_says.find("Quit 1 app?")
        press("Return")
        wait_until(lambda: not windows.windows(window.pid), "the terminal is gone")

    def start_again(self):
        says = self.screen_says
        says.click("About")
        says.click("Quit Ambrel")
        self.assertEqual(0, self.ambrel.wait_for_end())
        self.start_as_left()
        self.open_dropdown()
        self.screen_says.wait_until_gone("You're set")
        self.screen_says.click("Settings…")
        self.screen_says.click("App Rules")
        self.screen_says.click(TERMINAL_NAME)
        self.screen_says.wait_until_checked("Quit when hidden")


if __name__ == "__main__":
    desktop_test.main()
