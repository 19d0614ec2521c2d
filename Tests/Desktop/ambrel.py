"""Ambrel itself, started with settings of the test's choice, and what it leaves behind."""
import collections
import json
import os
import pathlib
import re

from programs import PROJECT, Program

APPLICATION = os.environ.get("AMBREL_APP", str(PROJECT / "build/release/Ambrel.app/ambrel"))
LOG_LINE = re.compile(r"^\d\d:\d\d:\d\d\.\d{3} (?:(?P<level>error|fault) )?(?P<category>[\w-]+): (?P<text>.*)$")
# Most desktops of the tests have no notification daemon, and a failed notification is an error line.
DEFAULTS = {"onboardingCompleted": True, "quitDelay": 0.2, "notifyOnQuit": False}

Decision = collections.namedtuple("Decision", "path action bundle name pid detail")


class Ambrel(Program):
    """The files of one instance lie in the given folder; the variables it reads for development are unset.

    `as_left`: its settings are those that an instance before it has left there, at first none.
    """

    def __init__(self, folder, defaults=None, rules=None, environment=None, as_left=False):
        folder = pathlib.Path(folder)
        config = folder / "config" / "Ambrel"
        config.mkdir(parents=True, exist_ok=True)
        if not as_left:
            (config / "app.ambrel.Ambrel.json").write_text(json.dumps({**DEFAULTS, **(defaults or {})}))
        if rules is not None:
            (config / "rules.json").write_text(json.dumps(rules))
        self.decisions_file = folder / "state" / "Ambrel" / "terminations.log"
        own = {name: value for name, value in os.environ.items() if not name.startswith("AMBREL_")}
        own.update(environment or {}, XDG_CONFIG_HOME=str(folder / "config"), XDG_STATE_HOME=str(folder / "state"))
        super().__init__([APPLICATION], environment=own, name="ambrel")

    def wait_for_start(self):
        self.wait_for(re.compile(r"engine: engine started; monitoring \d+ apps$"))
        return self

    def decisions(self):
        if not self.decisions_file.exists():
            return []
        found = []
        for line in self.decisions_file.read_text().splitlines():
            fields = line.split("\t")
            detail = fields[6] if not fields[6].startswith("by_ambrel_") else ""
            found.append(Decision(*fields[1:5], int(fields[5].removeprefix("pid=")), detail))
        return found

    def complaints(self):
        """The lines of level error and fault, and everything that is no log line at all."""
        found = []
        for line in self.lines:
            match = LOG_LINE.match(line.text)
            if not match or match["level"]:
                found.append(line.text)
        return found
