"""Programs under test, the lines they print, and waiting for what they do with a deadline instead of a sleep."""
import collections
import pathlib
import signal
import subprocess
import threading
import time

PROJECT = pathlib.Path(__file__).resolve().parents[2]
DEADLINE_SECONDS = 15

Line = collections.namedtuple("Line", "time text")

_news = threading.Condition()


class Overdue(AssertionError):
    """Something that should have happened has not."""


def wait_until(predicate, what, seconds=DEADLINE_SECONDS):
    """The first true value of the predicate, which is asked again whenever a program has said something."""
    deadline = time.monotonic() + seconds
    while True:
        value = predicate()
        if value:
            return value
        remaining = deadline - time.monotonic()
        if remaining <= 0:
            raise Overdue(f"after {seconds} s still not: {what}")
        # What no program announces (an exit, a new window) is looked at now and then.
        with _news:
            _news.wait(min(remaining, 0.03))


class Program:
    """A running program with its standard output and error as lines, each with the monotonic time of its arrival.

    Its environment is the caller's, or exactly the given one.
    """

    def __init__(self, command, environment=None, name=None):
        self.name = name or pathlib.Path(command[0]).name
        self.lines = []
        self.start_time = time.monotonic()
        self.process = subprocess.Popen(command, stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                        stderr=subprocess.STDOUT, text=True, errors="replace", bufsize=1,
                                        env=environment)
        self._reader = threading.Thread(target=self._read, daemon=True)
        self._reader.start()

    @property
    def pid(self):
        return self.process.pid

    def _read(self):
        for text in self.process.stdout:
            with _news:
                self.lines.append(Line(time.monotonic(), text.rstrip("\n")))
                _news.notify_all()

    def say(self, text):
        self.process.stdin.write(text + "\n")
        self.process.stdin.flush()

    def find(self, pattern, after=0):
        """The first line from number `after` on in which the pattern (a compiled one, or a text) occurs."""
        for line in self.lines[after:]:
            if pattern in line.text if isinstance(pattern, str) else pattern.search(line.text):
                return line
        return None

    def wait_for(self, pattern, after=0, seconds=DEADLINE_SECONDS):
        wanted = pattern if isinstance(pattern, str) else pattern.pattern
        return wait_until(lambda: self.find(pattern, after) or self._check_alive(wanted, pattern, after),
                          f"{self.name} says {wanted!r}", seconds)

    def _check_alive(self, wanted, pattern, after):
        if self.process.poll() is not None:
            self._reader.join(1)
            if not self.find(pattern, after):
                raise Overdue(f"{self.name} ended ({self.process.returncode}) without saying {wanted!r}")

    def count(self, text):
        return sum(text in line.text for line in self.lines)

    def is_running(self):
        return self.process.poll() is None

    def wait_for_end(self, seconds=DEADLINE_SECONDS):
        """The exit status, after the last line has been read."""
        wait_until(lambda: not self.is_running(), f"{self.name} ends", seconds)
        self._reader.join(1)
        return self.process.returncode

    def signal(self, number):
        self.process.send_signal(number)

    def stop(self):
        """Ends the program, kindly at first."""
        if self.is_running():
            for number in (signal.SIGCONT, signal.SIGTERM):
                self.signal(number)
            try:
                self.process.wait(3)
            except subprocess.TimeoutExpired:
                self.process.kill()
                self.process.wait()
        self._reader.join(1)
        self.process.stdin.close()
        # A child of the program may hold the other end open for longer.
        if not self._reader.is_alive():
            self.process.stdout.close()

    def transcript(self):
        return "\n".join(f"  {self.name}[{self.pid}] {line.time:.3f} {line.text}" for line in self.lines)
