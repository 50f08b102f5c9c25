"""The program under test, running in its window."""

import os
import re
import subprocess
import time

from . import clock as clock_of
from . import processes, sanitizer, tree
from .screen import LEFT, RIGHT
from .waiting import PATIENCE_SECONDS, NeverHappened, wait_until

MAIN_WIDTH, LIST_WIDTH, CONTACT_WIDTH = 275, 800, 500
# An animation moves less than a pixel in its first 40 ms.
_STILL_SECONDS = 0.12
_CLICK_SECONDS, _NUDGE_SECONDS, _DRAG_STEPS = 5, 0.5, 5


class Gone(AssertionError):
    """A control does not exist, or no longer exists."""


class Widget:
    """One run of the program, on a desktop and in a home. `clock` is the time at its start, "2014-05-12 10:00:00", or a
    `SetClock`; `speed` is the speed of this clock and of the program's timers, as a multiple of real time."""

    program = os.environ.get("TANDRY_PROGRAM", "")

    def __init__(self, desktop, home, *arguments, clock=None, speed=1, environment=None):
        self.screen, self.keyboard = desktop.screen, desktop.keyboard
        self._log_path = os.path.join(home.notes, "program.log")
        full = {**desktop.environment, **home.environment, **(environment or {}),
                "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1", "QT_ASSUME_STDERR_HAS_CONSOLE": "1",
                "QT_MESSAGE_PATTERN": "%{type}: %{message}", "ASAN_OPTIONS": sanitizer.OPTIONS,
                **clock_of.environment_of(clock, speed)}
        with open(self._log_path, "ab") as log:
            self.process = desktop.start([self.program, *arguments], full, stdin=subprocess.DEVNULL, stdout=log,
                                         stderr=log, cwd=home.folder)

    @property
    def log(self):
        """The log up to now, of this and earlier runs in the same home."""
        with open(self._log_path, encoding="utf-8", errors="replace") as file:
            return file.read()

    @property
    def running(self):
        """Whether the process is running."""
        return self.process.poll() is None

    def stop(self):
        """Kills the program, like a power cut."""
        processes.stop(self.process, gently=False)

    def wait_for_exit(self, limit=10):
        """Waits until the program ends by itself; returns its exit status."""
        wait_until(lambda: not self.running, "the program ends", limit)
        return self.process.returncode

    # Windows

    def window(self, width=MAIN_WIDTH):
        """The id of the visible window of this width, or None."""
        for candidate in self.screen.windows(self.process.pid):
            place = self.screen.geometry(candidate)
            if place and place.width == width:
                return candidate
        return None

    def wait_for_window(self, width=MAIN_WIDTH):
        """Waits until the window of this width is visible; returns its id."""
        return wait_until(lambda: self._alive() and self.window(width), f"a window {width} wide is shown")

    def geometry(self, width=MAIN_WIDTH):
        """Position and size of the window of this width."""
        return self.screen.geometry(self.wait_for_window(width))

    def wait_until_ready(self):
        """Waits until the main window is visible, on the accessibility bus and has the focus."""
        self.wait_for_window()
        self.control("Fermer", "push button")
        wait_until(lambda: self._focus(), "a control of the window has the focus")
        return self

    def active_place(self):
        """Position and size of the program's active window, or None."""
        found = re.search(r"0x[0-9a-f]+", self.screen.property("root", "_NET_ACTIVE_WINDOW"))
        window = int(found.group(), 16) if found else 0
        return self.screen.geometry(window) if window in self.screen.windows(self.process.pid) else None

    def active_width(self):
        """The width of the program's active window, or None."""
        place = self.active_place()
        return place.width if place else None

    # Controls

    @property
    def root(self):
        """The program's accessibility tree."""
        return wait_until(lambda: self._alive() and tree.application(self.process.pid),
                          "the program is on the accessibility bus")

    def find(self, name=None, role=None, showing=True):
        """The control with this name, or None."""
        try:
            return self.root.find(name, role, showing)
        except tree.Vanished:
            return None

    def find_all(self, name=None, role=None, showing=True):
        """Every control with this name and role."""
        return self.root.find_all(name, role, showing)

    def control(self, name=None, role=None, showing=True):
        """Waits for the control with this name and role."""
        try:
            return wait_until(lambda: self.find(name, role, showing), f"a {role or 'control'} called {name!r}")
        except NeverHappened as problem:
            raise NeverHappened(f"{problem}; there are:\n{self.root.outline()}") from None

    def wait_gone(self, name=None, role=None):
        """Waits until no such control is shown."""
        wait_until(lambda: self.find(name, role) is None, f"no {role or 'control'} called {name!r} any more")

    def focus_name(self):
        """The name of the focused control, or None."""
        control = self._focus()
        return control.name if control else None

    # Actions

    def click(self, name, role=None, button=LEFT):
        """Clicks the centre of a control, once it stops moving."""
        self.control(name, role)
        self.click_found(lambda: self.find(name, role), repr(name), button)

    def right_click(self, name, role=None):
        """Clicks with the right button."""
        self.click(name, role, RIGHT)

    def click_found(self, find, what, button=LEFT):
        """Clicks the control that `find` returns, once it stops moving; `what` names it in failure messages."""
        self.screen.click(*self.resting_place(find, what), button)

    def resting_place(self, find, what, beside=None, may_go=False):
        """The centre of a control, once it has stopped moving and is inside its window; `beside` finds a second control
        that must stop moving, too. Waits for the control, or fails with `Gone` if it `may_go`."""
        last, since = [None], [0]

        def settled():
            here = self._boxes(find, beside)
            if here is None and may_go:
                raise Gone(f"There is no {what}")
            now = time.monotonic()
            if here != last[0]:
                last[0], since[0] = here, now
            return here and now - since[0] >= _STILL_SECONDS and self._inside_a_window(here[0])

        wait_until(settled, f"{what} stops moving inside its window")
        box = last[0][0]
        return box.x + box.width // 2, box.y + box.height // 2

    @staticmethod
    def _boxes(find, beside):
        """The positions of both controls; empty while the first has no size, None when it does not exist."""
        try:
            control, neighbour = find(), beside and beside()
            boxes = [each.box for each in (control, neighbour) if each]
        except tree.Vanished:
            return None
        if not control:
            return None
        return boxes if boxes[0].width > 0 and boxes[0].height > 0 else []

    def click_until(self, effect, what, name, role=None):
        """Clicks a control until `effect` holds; a second click must have no further effect."""
        return self.repeat(lambda: self.click(name, role), effect, what)

    def repeat(self, action, effect, what):
        """Repeats `action` until `effect` holds and returns its result: the window system may lose a click near a moving
        window. A second action must have no further effect."""
        deadline = time.monotonic() + PATIENCE_SECONDS
        while True:
            try:
                action()
                return wait_until(effect, what, _CLICK_SECONDS)
            except NeverHappened:
                # What was to be clicked goes with the effect of the click before.
                if answer := effect():
                    return answer
                if time.monotonic() > deadline:
                    raise

    def drag(self, grip, end, width=MAIN_WIDTH):
        """Drags a window by its point `grip` to the point `end` of the screen; returns its new geometry. Each move waits until
        the window has followed the last one: the program moves relative to its position, and would overtake the mouse on a
        busy machine."""
        place = self.geometry(width)
        start = place.x + grip[0], place.y + grip[1]
        self.screen.press(*start)
        for step in range(1, _DRAG_STEPS + 1):
            mouse = [start[axis] + (end[axis] - start[axis]) * step // _DRAG_STEPS for axis in (0, 1)]
            self._drag_to(mouse, (mouse[0] - grip[0], mouse[1] - grip[1]), width)
        self.screen.release()
        return self.geometry(width)

    def _drag_to(self, mouse, expected, width):
        nudged = time.monotonic()
        self.screen.move(*mouse)

        def follows():
            nonlocal nudged
            if self.geometry(width)[:2] == expected:
                return True
            if time.monotonic() - nudged > _NUDGE_SECONDS:
                self.screen.move(mouse[0] + 1, mouse[1])
                self.screen.move(*mouse)
                nudged = time.monotonic()
            return False

        wait_until(follows, f"the window follows the mouse to {expected}")

    def type(self, text):
        """Types into the focused control."""
        self.keyboard.type(text)

    def press(self, *keys):
        """Presses keys."""
        self.keyboard.press(*keys)

    def tab_round(self):
        """Presses Tab until the focus is back where it was; returns the names of the focused controls, that one last."""
        start = here = self._focus_place()
        names = []
        while len(names) < 60:
            last = here
            self.press("Tab")
            here = wait_until(lambda: self._moved_focus(last), f"Tab moves the focus from {last}")
            names.append(here[0])
            if here == start:
                return names
        raise AssertionError(f"Tab does not return to {start}: {names}")

    def _focus_place(self):
        control = wait_until(self._focus, "a control has the focus")
        return control.name, control.box

    def _moved_focus(self, last):
        here = self._focus_place()
        return here if here != last else None

    def replace_text(self, name, text, role="text"):
        """Clicks a field and replaces its text."""
        self.click_until(lambda: self.control(name, role).has("focused"), f"{name!r} has the focus", name, role)
        self.press("ctrl+a", "BackSpace")
        if text:
            self.type(text)

    def _focus(self):
        """The focused control: the innermost, because its parents are also reported as focused."""
        try:
            controls = self.root.walk(showing=True)
            focused = [c for c in controls if c.has("focused") and c.role not in ("application", "frame")]
        except tree.Vanished:
            return None
        return focused[-1] if focused else None

    def _inside_a_window(self, box):
        x, y = box.x + box.width // 2, box.y + box.height // 2
        for candidate in self.screen.windows(self.process.pid):
            place = self.screen.geometry(candidate)
            if place and place.x <= x < place.x + place.width and place.y <= y < place.y + place.height:
                return True
        return False

    def _alive(self):
        if not self.running:
            raise AssertionError(f"The program ended with status {self.process.returncode}:\n{self.log[-2000:]}")
        return True
