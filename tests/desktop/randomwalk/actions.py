"""Presses controls of both windows with the mouse, with keys or through the accessibility bus."""

import time

from support import tree
from support.waiting import NeverHappened, wait_until
from support.widget import MAIN_WIDTH

from .observation import look

_STILL_SECONDS = 0.2
_FOCUSABLE = ("push button", "text", "check box", "page tab", "link")


class Actions:
    """Part of a walk, which has `_widget`, `_random`, `_view` (the last view), `_say` and `counts`."""

    # How many of ten presses use the mouse, keys and the bus.
    ways = (3, 3, 4)

    def _press(self, name, role="push button", in_list=False):
        frame = self._view.list if in_list else self._view.widget
        found = [each for each in frame.controls if each.name == name and each.role == role]
        if not found:
            raise NeverHappened(f"{role} {name!r} is not visible; there are "
                                f"{[(each.role, each.name) for each in frame.controls]}")
        self._press_control(found[0], repr(name), in_list)

    def _press_control(self, shown, what, in_list=False, by_keys=True):
        way = self._random.choices(("mouse", "keys", "bus"), self.ways)[0]
        frame = self._view.list if in_list else self._view.widget
        if way == "keys" and not (by_keys and frame.active and "sensitive" in shown.states):
            way = "bus"
        if way == "mouse":
            place = self._at_rest(shown)
            if in_list and self._covered(place):
                way = "bus"
        self._say(f"{what} by {way}")
        self.counts[way] += 1
        if way == "bus":
            shown.control.act()
        elif way == "mouse":
            self._widget.screen.click(*place)
        else:
            self._tab_to(shown)
            self._widget.press(self._random.choice(("Return", "space", "KP_Enter")))

    def _at_rest(self, shown):
        """The centre of a control, once neither it nor the controls around it move any more."""
        view = self._view
        self._resting_boxes()
        self._view = view
        return self._widget.resting_place(lambda: shown.control, shown.name)

    def _covered(self, place):
        """Whether the widget, which stays on top, covers that position."""
        over = self._widget.geometry(MAIN_WIDTH)
        return over.x <= place[0] < over.x + over.width and over.y <= place[1] < over.y + over.height

    def _keys_reach_widget(self):
        return self._view.widget.active and len(self._view.widget.focused()) == 1

    def _tab_to(self, shown):
        order = [each for each in self._view.active.controls if each.role in _FOCUSABLE]
        focused = [each for each in order if "focused" in each.states]
        if focused and shown in order:
            ahead = (order.index(shown) - order.index(focused[-1])) % len(order)
            back = (len(order) - ahead) % len(order)
            keys = ["Tab"] * ahead if ahead <= back else ["shift+Tab"] * back
            if keys:
                self._widget.press(*keys)
            try:
                return wait_until(lambda: self._has_keyboard(shown.control), "it has the focus", limit=1)
            except NeverHappened:
                # Tab does not reach every control of that order.
                pass
        # Tab enters a table at its current row; Shift+Tab reaches the rows above it.
        for key in ["Tab"] * 40 + ["shift+Tab"] * 40:
            if self._has_keyboard(shown.control):
                return None
            self._press_tab(key)
        raise NeverHappened(f"Tab does not reach {shown.name!r}")

    def _press_tab(self, key):
        """Presses Tab, alone or with Shift; returns when the focus has moved."""
        def place():
            view = look(self._widget.root)
            focused = view and view.active and view.active.focused()
            return [focused[-1].name, focused[-1].control.box] if focused else []

        before = place()
        self._widget.press(key)
        wait_until(lambda: place() not in (before, []), "Tab moves the focus")

    @staticmethod
    def _has_keyboard(control):
        try:
            return control.has("focused")
        except tree.Vanished:
            return False

    def _replace(self, field, text):
        shown = self._view.widget.named(field, "text")
        if not (self._view.widget.active and "focused" in shown.states and self._random.random() < 0.6):
            self._widget.screen.click(*self._at_rest(shown))
            wait_until(lambda: shown.control.has("focused"), f"{field} has the focus")
        # Keys go to the active window.
        wait_until(lambda: self._widget.active_width() == MAIN_WIDTH, "the widget is active")
        self._widget.press("ctrl+a", "BackSpace")
        if text:
            self._widget.type(text)

    def _resting_boxes(self):
        """The boxes once nothing in the widget moves any more."""
        last, since = [None], [0]

        def at_rest():
            view = look(self._widget.root)
            try:
                here = view and [(each.name, each.control.box) for each in view.widget.controls
                                 if each.role == "push button"]
            except tree.Vanished:
                return False
            if here != last[0]:
                last[0], since[0] = here, time.monotonic()
            self._view = view or self._view
            return view and time.monotonic() - since[0] >= _STILL_SECONDS

        wait_until(at_rest, "the widget stops moving")
        return self._view.boxes()
