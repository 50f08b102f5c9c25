"""The file events of a folder, reported by the kernel (inotify)."""

import collections
import ctypes
import os
import select
import struct

# Events of inotify(7).
MODIFIED, MOVED_HERE, CREATED, DELETED = 0x2, 0x80, 0x100, 0x200
ALL = MODIFIED | MOVED_HERE | CREATED | DELETED
_HEAD = struct.Struct("iIII")
_GLANCE_SECONDS = 0.05
_libc = ctypes.CDLL(None, use_errno=True)

Event = collections.namedtuple("Event", "name mask")


class Watch:
    """The events of one folder from now on; use it in a `with` statement."""

    def __init__(self, folder, mask=ALL):
        self._handle = _libc.inotify_init1(os.O_CLOEXEC | os.O_NONBLOCK)
        if self._handle < 0 or _libc.inotify_add_watch(self._handle, os.fsencode(folder), mask) < 0:
            raise OSError(ctypes.get_errno(), f"{folder} cannot be watched")

    def __enter__(self):
        return self

    def __exit__(self, *_):
        os.close(self._handle)

    def events(self, over=lambda: False):
        """Yields events until `over()`."""
        while not over():
            if select.select([self._handle], [], [], _GLANCE_SECONDS)[0]:
                yield from self._read()

    def pending(self):
        """The events that have happened and were not yielded yet, without waiting."""
        try:
            return list(self._read())
        except BlockingIOError:
            return []

    def _read(self):
        data, place = os.read(self._handle, 65536), 0
        while place < len(data):
            _, mask, _, length = _HEAD.unpack_from(data, place)
            name = data[place + _HEAD.size:place + _HEAD.size + length].rstrip(b"\0")
            yield Event(os.fsdecode(name), mask)
            place += _HEAD.size + length
