"""The notification daemon dunst, and what its user does with what it shows."""
import json
import pathlib
import subprocess

from programs import Program, wait_until

CONFIGURATION = """[global]
    markup = full
    dmenu = {picker}
    history_length = 20
    timeout = 0
    {more}
"""
PICKER = """#!/bin/sh
grep --fixed-strings --max-count=1 -- "$(cat '{choice}')"
"""


def _control(*arguments):
    return subprocess.run(["dunstctl", *arguments], capture_output=True, text=True, check=False)


class Dunst(Program):
    """Shows notifications until they are closed. `more` are lines of its configuration."""

    def __init__(self, folder, more=""):
        folder = pathlib.Path(folder)
        picker, self._choice = folder / "pick", folder / "choice"
        picker.write_text(PICKER.format(choice=self._choice))
        picker.chmod(0o700)
        configuration = folder / "dunstrc"
        configuration.write_text(CONFIGURATION.format(picker=picker, more=more))
        super().__init__(["dunst", "-config", str(configuration)])
        wait_until(lambda: _control("count", "displayed").returncode == 0, "dunst answers")

    @staticmethod
    def wait_for_notification(count=1):
        wait_until(lambda: _control("count", "displayed").stdout.strip() == str(count),
                   f"{count} notification(s) on screen")

    @staticmethod
    def click():
        """On the notification itself."""
        _control("action")

    def choose(self, action):
        """The button of this identifier."""
        self._choice.write_text(f",{action}]")
        _control("context")

    @staticmethod
    def close_all():
        """Returns title and body of all notifications there have been, latest first."""
        _control("close-all")
        wait_until(lambda: _control("count", "displayed").stdout.strip() == "0", "no notification on screen")
        entries, = json.loads(_control("history").stdout)["data"]
        return [(entry["summary"]["data"], entry["body"]["data"]) for entry in entries]
