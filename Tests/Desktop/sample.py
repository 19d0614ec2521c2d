"""The sample application, with or without a desktop entry of its own."""
import os
import pathlib
import re

from programs import PROJECT, Program

SAMPLE = os.environ.get("AMBREL_SAMPLE", str(PROJECT / "build/release/Tests/Support/sample-app/ambrel-sample"))

ENTRY = """[Desktop Entry]
Type=Application
Name={name}
Exec={command}
StartupWMClass={wm_class}
"""


def install_entry(name, command=SAMPLE):
    folder = pathlib.Path(os.environ["XDG_DATA_HOME"]) / "applications"
    folder.mkdir(parents=True, exist_ok=True)
    (folder / f"{name}.desktop").write_text(ENTRY.format(name=name, command=command, wm_class=name.capitalize()))


class Sample(Program):
    """Its windows say that they belong to the entry of the sample's name, if there is one."""

    def __init__(self, name, *options):
        super().__init__([SAMPLE, "--class", name, name.capitalize(), *options], name=name)

    def open(self, how="open"):
        """Opens a window, or a dialog and so on, and returns its id once it is on screen."""
        begin = len(self.lines)
        self.say(how)
        return self.wait_for(re.compile(r"\bwindow (0x\w+) open$"), after=begin).text.split()[-2]
