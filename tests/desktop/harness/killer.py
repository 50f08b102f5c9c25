"""Ends a program as a crash would, at a moment that is chosen beforehand."""

import ctypes
import os
import select
import signal
import struct
import threading
import time

# Events of inotify(7).
MODIFIED, CREATED, DELETED = 0x2, 0x100, 0x200
_HEAD = struct.Struct("iIII")
_GLANCE_SECONDS = 0.05
_libc = ctypes.CDLL(None, use_errno=True)


class Killer:
    """Kills `process`, once. `killed_at` is the time of it, None before."""

    def __init__(self, process):
        self.killed_at = None
        self._process = process
        self._lock = threading.Lock()
        self._over = threading.Event()

    def after(self, seconds):
        """Kills so long from now."""
        threading.Thread(target=lambda: self._over.wait(seconds) or self.now(), daemon=True).start()

    def at_event(self, folder, name, event, count=1, delay=0):
        """Kills `delay` seconds after `event` has happened `count` times to the file `name` in `folder`."""
        watch = _Watch(folder, name, event)

        def wait_and_kill():
            with watch:
                if watch.wait(count, self._over):
                    # A thread that sleeps so short a time would oversleep.
                    end = time.monotonic() + delay
                    while time.monotonic() < end:
                        pass
                    self.now()

        threading.Thread(target=wait_and_kill, daemon=True).start()

    def now(self):
        """Kills at once, unless it is done."""
        with self._lock:
            if self.killed_at is None:
                # First the time: who sees the death looks at it at once.
                self.killed_at = time.monotonic()
                os.kill(self._process.pid, signal.SIGKILL)
        self._over.set()


class _Watch:
    """What the system tells about one file; it counts from the creation on."""

    def __init__(self, folder, name, event):
        self._name, self._event = os.fsencode(name), event
        self._handle = _libc.inotify_init1(os.O_CLOEXEC | os.O_NONBLOCK)
        if self._handle < 0 or _libc.inotify_add_watch(self._handle, os.fsencode(folder), event) < 0:
            raise OSError(ctypes.get_errno(), f"{folder} cannot be watched")

    def __enter__(self):
        return self

    def __exit__(self, *_):
        os.close(self._handle)

    def wait(self, count, over):
        """True after `count` events, False when `over` is set before."""
        while not over.is_set():
            if select.select([self._handle], [], [], _GLANCE_SECONDS)[0]:
                count -= self._read()
                if count <= 0:
                    return True
        return False

    def _read(self):
        data, place, found = os.read(self._handle, 65536), 0, 0
        while place < len(data):
            _, mask, _, length = _HEAD.unpack_from(data, place)
            name = data[place + _HEAD.size:place + _HEAD.size + length].rstrip(b"\0")
            found += bool(mask & self._event) and name == self._name
            place += _HEAD.size + length
        return found
