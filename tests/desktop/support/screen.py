"""The X display: windows, mouse and pictures."""

import collections
import re
import subprocess
import time

Geometry = collections.namedtuple("Geometry", "x y width height")
LEFT, MIDDLE, RIGHT = 1, 2, 3


class Screen:
    """Windows, mouse and screenshots of the display in `environment`."""

    def __init__(self, environment):
        self._environment = environment

    def windows(self, pid):
        """The ids of the visible windows of process `pid`."""
        found = self._ask("xdotool", "search", "--all", "--onlyvisible", "--pid", str(pid))
        return [int(line) for line in found.split()]

    def geometry(self, window):
        """The window's position and size, or None when it has just been closed."""
        answer = self._ask("xwininfo", "-id", str(window))
        labels = ("Absolute upper-left X", "Absolute upper-left Y", "Width", "Height")
        values = [re.search(label + r":\s+(-?\d+)", answer) for label in labels]
        return Geometry(*(int(value.group(1)) for value in values)) if all(values) else None

    def activate(self, window):
        """Activates a window; returns whether it is active."""
        self._do("windowactivate", str(window))
        return hex(window) in self.property("root", "_NET_ACTIVE_WINDOW")

    def unmanaged(self, window):
        """Whether the window bypasses the window manager, like a menu."""
        return "Override Redirect State: yes" in self._ask("xwininfo", "-id", str(window))

    def title(self, window):
        """The window's title."""
        return self._ask("xdotool", "getwindowname", str(window)).strip()

    def property(self, window, name):
        """A window property as xprop prints it; `window` is an id or "root"."""
        which = ["-root"] if window == "root" else ["-id", str(window)]
        return self._ask("xprop", *which, name).strip()

    def stacked_above(self, upper, lower):
        """Whether `upper` is above `lower` in the window manager's stacking list."""
        listed = self.property("root", "_NET_CLIENT_LIST_STACKING")
        order = [int(part, 16) for part in re.findall(r"0x[0-9a-f]+", listed)]
        return order.index(upper) > order.index(lower)

    def minimise(self, window):
        """Minimises a window, like a taskbar."""
        self._do("windowminimize", str(window))

    def move(self, x, y):
        """Moves the mouse."""
        self._do("mousemove", str(x), str(y))

    def click(self, x, y, button=LEFT):
        """One click."""
        self._do("mousemove", str(x), str(y), "click", str(button))

    def press(self, x, y, button=LEFT):
        """Presses a button and keeps it down."""
        self._do("mousemove", str(x), str(y), "mousedown", str(button))

    def release(self, button=LEFT):
        """Releases a button."""
        self._do("mouseup", str(button))

    def drag(self, start, end, button=LEFT, steps=5):
        """Presses at `start`, moves to `end` in steps, releases."""
        moves = []
        for step in range(1, steps + 1):
            x = start[0] + (end[0] - start[0]) * step // steps
            y = start[1] + (end[1] - start[1]) * step // steps
            moves += ["mousemove", str(x), str(y), "sleep", "0.02"]
        self._do("mousemove", str(start[0]), str(start[1]), "mousedown", str(button), "sleep", "0.05",
                 *moves, "mouseup", str(button))

    def wheel(self, x, y, notches):
        """Turns the wheel at a position, up when `notches` is positive."""
        self._do("mousemove", str(x), str(y), "click", "--repeat", str(abs(notches)), "--delay", "15",
                 "4" if notches > 0 else "5")

    def picture(self, path):
        """Saves a screenshot."""
        with open(path, "wb") as file:
            file.write(self._grab())

    def still_picture(self, path, limit=3):
        """Saves a screenshot once nothing moves any more."""
        before, deadline = None, time.monotonic() + limit
        while time.monotonic() < deadline:
            now = self._grab()
            if now == before:
                break
            before = now
        with open(path, "wb") as file:
            file.write(now)

    def _grab(self):
        return subprocess.run(["import", "-window", "root", "-define", "png:exclude-chunks=date,time", "png:-"],
                              env=self._environment, check=True, capture_output=True, timeout=60).stdout

    def pixel(self, x, y):
        """The colour of a pixel of the screen, as "#rrggbb"."""
        raw = subprocess.run(["import", "-window", "root", "-crop", f"1x1+{x}+{y}", "-depth", "8", "rgb:-"],
                             env=self._environment, check=True, capture_output=True, timeout=60).stdout
        return "#" + raw[:3].hex()

    def region(self, box):
        """The pixels of a screen area, for comparison."""
        return subprocess.run(["import", "-window", "root", "-crop", f"{box.width}x{box.height}+{box.x}+{box.y}",
                               "-depth", "8", "rgb:-"], env=self._environment, check=True, capture_output=True,
                              timeout=60).stdout

    def _do(self, *arguments):
        subprocess.run(["xdotool", *arguments], env=self._environment, check=True, timeout=60,
                       stdout=subprocess.DEVNULL)

    def _ask(self, *command):
        done = subprocess.run(command, env=self._environment, capture_output=True, text=True, timeout=60)
        return done.stdout
