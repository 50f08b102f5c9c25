"""The program as a screen reader sees it: controls with role, name, state and position."""

import collections

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402  (the version must be named first)

Box = collections.namedtuple("Box", "x y width height")
# The errors of calls to a control that vanishes meanwhile.
Vanished = GLib.Error
_CALL_LIMIT_MS = 5000


def role_of(node):
    """The role of a node, with the names of older versions of the library."""
    name = node.get_role_name()
    # Called so since version 2.56.
    return "push button" if name == "button" else name


class Control:
    """One node of the accessibility tree. Every call goes to the program: nothing is cached."""

    def __init__(self, node, is_application=False):
        self._node = node
        self._is_application = is_application

    @property
    def node(self):
        """The object of the accessibility library."""
        return self._node

    @property
    def role(self):
        """The role as the accessibility bus spells it: "push button", "text", "check box", "list item"…"""
        return role_of(self._node)

    @property
    def name(self):
        """The accessible name."""
        return self._node.get_name() or ""

    @property
    def box(self):
        """Position and size on the screen."""
        place = Atspi.Component.get_extents(self._node, Atspi.CoordType.SCREEN)
        return Box(place.x, place.y, place.width, place.height)

    @property
    def middle(self):
        """The position to click."""
        box = self.box
        return box.x + box.width // 2, box.y + box.height // 2

    @property
    def text(self):
        """The text of a text field."""
        if "Text" not in self._node.get_interfaces():
            return ""
        return Atspi.Text.get_text(self._node, 0, Atspi.Text.get_character_count(self._node))

    def has(self, state):
        """Whether the control has a state: "showing", "checked", "focused", "focusable", "enabled"…"""
        return self._node.get_state_set().contains(getattr(Atspi.StateType, state.upper()))

    @property
    def actions(self):
        """The names of its accessible actions."""
        if "Action" not in self._node.get_interfaces():
            return []
        return [Atspi.Action.get_action_name(self._node, i) for i in range(Atspi.Action.get_n_actions(self._node))]

    def act(self, action="Press"):
        """Performs an accessible action, like a screen reader."""
        Atspi.Action.do_action(self._node, self.actions.index(action))

    def children(self):
        """The child nodes."""
        nodes = (self._node.get_child_at_index(i) for i in range(self._node.get_child_count()))
        return [Control(node) for node in nodes if node is not None]

    def walk(self, showing=False):
        """This node and all nodes below it, in document order; without hidden windows when `showing`."""
        yield self
        try:
            below = self.children()
            if showing and self._is_application:
                below = [window for window in below if window.has("showing")]
        except Vanished:
            return
        for child in below:
            yield from child.walk()

    def find_all(self, name=None, role=None, showing=True):
        """The controls below with this name and this role; None matches any."""
        return list(self._matching(name, role, showing))

    def find(self, name=None, role=None, showing=True):
        """The first of `find_all`, or None."""
        return next(self._matching(name, role, showing), None)

    def _matching(self, name, role, showing):
        for control in self.walk(showing):
            try:
                if (name is None or control.name == name) and (role is None or control.role == role) \
                        and (not showing or control.has("showing")):
                    yield control
            except Vanished:
                continue

    def outline(self, depth=0):
        """The tree as text, for failure messages."""
        try:
            shown = "" if self.has("showing") else " (hidden)"
            lines = [f"{'  ' * depth}{self.role} {self.name!r}{shown}"]
            for child in self.children():
                lines.append(child.outline(depth + 1))
            return "\n".join(lines)
        except Vanished:
            return f"{'  ' * depth}(vanished)"


def application(pid):
    """The root of process `pid`'s tree, or None while it is not on the bus."""
    desktop = Atspi.get_desktop(0)
    for index in range(desktop.get_child_count()):
        try:
            node = desktop.get_child_at_index(index)
            if node is not None and node.get_process_id() == pid:
                node.set_cache_mask(Atspi.Cache.NONE)
                return Control(node, is_application=True)
        except Vanished:
            continue
    return None


def connect():
    """Connects to the accessibility bus of the desktop in the environment; call it once in a process."""
    Atspi.init()
    Atspi.set_timeout(_CALL_LIMIT_MS, _CALL_LIMIT_MS)
    # The first call starts the registry; otherwise the program would wait for it at its start.
    Atspi.get_desktop(0).get_child_count()
