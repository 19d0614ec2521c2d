"""The longest that Ambrel stands still."""
import math
import re
import threading

from programs import Overdue
from sample import Sample, install_entry

NAME = "ambrel-heartbeat"
PAUSE_SECONDS = 0.05


class Heartbeat(Sample):
    """Opens and closes its second window all the time, and measures how long Ambrel takes to say so."""

    @staticmethod
    def install():
        """To be called before Ambrel starts, which may learn of an entry later than of its application's window."""
        install_entry(NAME)

    def __init__(self, ambrel):
        super().__init__(NAME)
        self.open()
        ambrel.wait_for(f"pid {self.pid} windows=1 aboveThreshold=true")
        self.beats, self.longest = 0, 0
        self._ambrel, self._ending = ambrel, threading.Event()
        self._thread = threading.Thread(target=self._beat)
        self._thread.start()

    def _beat(self):
        window = 1
        try:
            # Without a pause the other programs would do nothing but look at its windows.
            while not self._ending.wait(PAUSE_SECONDS):
                window += 1
                self._measure("open", "open", 2)
                self._measure(f"destroy {window}", "destroyed", 1)
        except Overdue:
            self.longest = math.inf

    def _measure(self, verb, word, count):
        mine, its = len(self.lines), len(self._ambrel.lines)
        self.say(verb)
        done = self.wait_for(word, after=mine)
        # A monitor that is built anew in between counts without a change.
        noted = self._ambrel.wait_for(re.compile(rf"{NAME} (windows \d->|pid {self.pid} windows=){count} "), after=its)
        self.longest = max(self.longest, noted.time - done.time)
        self.beats += 1

    def stop(self):
        self._ending.set()
        self._thread.join()
        super().stop()
