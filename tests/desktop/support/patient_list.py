"""The patient list popup, with the actions of its user."""

from . import tree
from .waiting import wait_until
from .widget import LIST_WIDTH

WAITING, ALL = "Patients en attente", "Liste de tous les patients"
REMOVE = "Supprimer les patients sélectionnés"
SELECT_ALL = "Tout sélectionner"


class PatientList:
    """The popup of a running widget; `open` shows it."""

    def __init__(self, widget):
        self.widget = widget

    def open(self):
        """Opens the popup with the header's button."""
        self.widget.click_until(lambda: self._find(WAITING, "page tab"), "the list shows its tabs",
                                "Liste de tous les patients", "push button")
        return self

    @property
    def window(self):
        """The popup's part of the accessibility tree."""
        frames = self.widget.find_all(role="frame")
        return next(frame for frame in frames if frame.box.width == LIST_WIDTH)

    @property
    def place(self):
        """Position and size on the screen."""
        return self.widget.geometry(LIST_WIDTH)

    def drag_to(self, x, y):
        """Drags the popup by its header to a position."""
        self.widget.drag((200, 15), (x + 200, y + 15), LIST_WIDTH)

    def click(self, name, role=None):
        """Clicks a control of the popup."""
        wait_until(lambda: self._find(name, role), f"the list has {name!r}")
        self.widget.click_found(lambda: self._find(name, role), repr(name))

    def show_tab(self, tab):
        """Clicks a tab and waits for its rows."""
        self.widget.repeat(lambda: self.click(tab, "page tab"), lambda: self._find(tab, "list"),
                           f"the rows of {tab!r} are shown")

    def rows(self):
        """The texts of each row, from left to right, without empty cells."""
        table = self.window.find(role="list")
        if table is None:
            return []
        lines = {}
        for label in table.find_all(role="label"):
            box = label.box
            lines.setdefault(box.y, []).append((box.x, label.name))
        return [[text for _, text in sorted(cells) if text] for _, cells in sorted(lines.items())]

    def names(self):
        """The names in the rows."""
        try:
            return [row[0] for row in self.rows()]
        except (tree.Vanished, StopIteration):
            return None

    def ticked(self):
        """The names of the rows whose box is ticked."""
        prefix = "Sélectionner "
        boxes = self.window.find_all(role="check box")
        return [box.name[len(prefix):] for box in boxes if box.name.startswith(prefix) and box.has("checked")]

    def tick(self, name):
        """Clicks the box of a row."""
        box = f"Sélectionner {name}"
        was = wait_until(lambda: self._find(box, "check box"), f"the list has {box!r}").has("checked")
        self.click(box, "check box")
        wait_until(lambda: self._find(box, "check box").has("checked") != was, f"{box!r} has changed")

    def open_patient(self, name):
        """Opens a row's patient in the editor."""
        self.widget.repeat(lambda: self.click_row(name), lambda: self.widget.edits(name), f"the editor shows {name!r}")

    def click_row(self, name):
        """Clicks a row outside its box."""
        self.click(f"Ouvrir {name}", "push button")

    def _find(self, name, role):
        try:
            return self.window.find(name, role)
        except (tree.Vanished, StopIteration):
            return None
