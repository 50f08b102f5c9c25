"""Kills a program at a given moment, like a crash."""

import os
import signal
import threading
import time

from .watch import Watch


class Killer:
    """Kills `process` once. `killed_at` is the time of the kill, None before."""

    def __init__(self, process):
        self.killed_at = None
        self._process = process
        self._lock = threading.Lock()
        self._over = threading.Event()

    def after(self, seconds):
        """Kills after that many seconds."""
        threading.Thread(target=lambda: self._over.wait(seconds) or self.now(), daemon=True).start()

    def at_event(self, folder, name, event, count=1, delay=0):
        """Kills `delay` seconds after `event` has happened `count` times to the file `name` in `folder`."""
        # Watches from now on, not from the start of the thread.
        watch = Watch(folder, event)

        def wait_and_kill():
            left = count
            with watch:
                for found in watch.events(self._over.is_set):
                    left -= found.name == name
                    if left == 0:
                        # Sleeping would take longer than such a short delay.
                        end = time.monotonic() + delay
                        while time.monotonic() < end:
                            pass
                        self.now()
                        return

        threading.Thread(target=wait_and_kill, daemon=True).start()

    def now(self):
        """Kills at once, unless already done."""
        with self._lock:
            if self.killed_at is None:
                # Set the time first: it is read as soon as the process has died.
                self.killed_at = time.monotonic()
                os.kill(self._process.pid, signal.SIGKILL)
        self._over.set()
