"""The results of the long trials, printed at once and collected in a file for the whole run."""

import os
import platform
import time


class Report:
    """Lines of text in sections, one section for each trial."""

    def __init__(self, path):
        self.path = path
        self._file = open(path, "w", encoding="utf-8")
        self._failures = 0
        self._started = None
        self.line(f"{time.strftime('%Y-%m-%d %H:%M:%S')}, {os.cpu_count()} processors, {platform.platform()}")

    def begin(self, name, seed):
        """Begins the section of a trial."""
        self._started = time.monotonic()
        self.line()
        self.line(f"== {name}, seed {seed}")

    def line(self, text=""):
        """Adds a line of text."""
        print(text, flush=True)
        print(text, file=self._file, flush=True)

    def value(self, label, value):
        """Adds a value with its label."""
        self.line(f"{label + ' ':.<60} {value}")

    def progress(self, text):
        """Prints the progress of a trial; the file does not get it."""
        print(text, flush=True)

    def failed(self, text):
        """Adds a failure. The trial may continue; the run ends with status 1."""
        self._failures += 1
        self.line(f"FAILED: {text}")

    def end(self):
        """Ends the section."""
        self.value("seconds", f"{time.monotonic() - self._started:.0f}")

    def close(self):
        """The exit status of the whole run."""
        self.line()
        self.line(f"{self._failures} failures" if self._failures else "no failures")
        self._file.close()
        print(f"This report: {self.path}")
        return 1 if self._failures else 0
