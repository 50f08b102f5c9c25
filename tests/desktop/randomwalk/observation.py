"""The content of the windows at one moment, read from the accessibility bus."""

from support import tree
from support.tandry import GATE_1, GATE_2, NAME_FIELD, PHONE_FIELD, QUESTIONS, SEARCH_FIELD, WAITING_LINK

_TICK = "Sélectionner "
_FIRST_DAY = "Date du 1er rendez-vous : "
_LEAVES = ("push button", "check box", "text", "label", "image", "page tab", "scroll bar", "status bar")


# The roles of controls that exist as long as their window: caching them makes reading faster. Rows of a list reuse the
# bus objects of others.
_roles = {}


class Shown:
    """A control with its properties at one moment."""

    def __init__(self, node, role, states):
        self.control, self.role, self.states = tree.Control(node), role, states
        self.name = self.control.name


def _shown_below(node, lasting=True):
    """The visible controls below a node, in reading order."""
    for index in range(node.get_child_count()):
        child = node.get_child_at_index(index)
        if child is None:
            continue
        role = _roles.get(child) if lasting else None
        if role is None:
            role = tree.role_of(child)
        if lasting:
            _roles[child] = role
        states = {state.value_nick for state in child.get_state_set().get_states()}
        if "showing" in states:
            yield Shown(child, role, states)
        if role not in _LEAVES:
            yield from _shown_below(child, lasting=False)


class Frame:
    """One window: its visible controls, in reading order."""

    def __init__(self, frame):
        self.active = frame.has("active")
        self.width = frame.box.width
        self.controls = list(_shown_below(frame.node))

    def named(self, name, role=None):
        """The visible control with that name, or None."""
        return next((each for each in self.controls if each.name == name and role in (None, each.role)), None)

    def starting(self, start, role="push button"):
        """The visible control whose name starts with the text, or None."""
        return next((each for each in self.controls if each.name.startswith(start) and each.role == role), None)

    def focused(self):
        """The visible focused controls."""
        return [each for each in self.controls if "focused" in each.states]


class View:
    """All windows at one moment; a control that vanishes meanwhile raises tree.Vanished."""

    def __init__(self, root):
        frames = [Frame(window) for window in root.children()
                  if window.role == "frame" and window.has("showing")]
        self.widget = next(frame for frame in frames if frame.width == 275)
        self.list = next((frame for frame in frames if frame.width == 800), None)
        self.active = next((frame for frame in frames if frame.active), None)

    # The widget

    def in_editor(self):
        """True or False, None during the change."""
        searching, editing = (self.widget.named(name, "text") for name in (SEARCH_FIELD, NAME_FIELD))
        return None if bool(searching) == bool(editing) else bool(editing)

    def search(self):
        """The content of the search."""
        link = self.widget.starting(WAITING_LINK)
        rest = link.name[len(WAITING_LINK):].strip(" ()") if link else None
        return {"typed": self.widget.named(SEARCH_FIELD, "text").control.text,
                "to create": bool(self.widget.named("Créer la fiche patient", "push button")),
                "waiting": None if link is None else int(rest or 0)}

    def result_rows(self):
        """The visible rows of the result list, from the top."""
        names = [each.name for each in self.widget.controls]
        start = names.index("Patients trouvés") if "Patients trouvés" in names else len(names)
        rows = [each for each in self.widget.controls[start:]
                if each.role == "push button" and not each.name.startswith(WAITING_LINK)]
        return sorted(rows, key=lambda row: row.control.box.y)

    def editor(self):
        """The content of the form without the questions."""
        labels = [each.name for each in self.widget.controls if each.name.startswith(_FIRST_DAY)]
        buttons = [each.name for each in self.widget.controls if each.name in ("Enregistrer", "Supprimer", "Annuler")]
        return {"name": self.widget.named(NAME_FIELD, "text").control.text,
                "phone": self.widget.named(PHONE_FIELD, "text").control.text,
                "male": bool(self.widget.named("Sexe : homme")),
                "first day": labels[0][len(_FIRST_DAY):] if labels else None,
                "buttons": buttons, "SMS": bool(self.widget.named("Envoyer le SMS de rappel"))}

    def asked(self):
        """The questions, each with its answer or ""."""
        found = {}
        for key, text in QUESTIONS.items():
            question = self.widget.starting(text)
            if question:
                found[key] = question.name[len(text):].strip()
        return found

    def gates(self):
        """The closed gates."""
        return [number for number, text in ((1, GATE_1), (2, GATE_2)) if self.widget.named(text)]

    def boxes(self):
        """The visible boxes by question: {key: {"Oui": box, "Non": box}}."""
        found, key = {}, None
        for each in self.widget.controls:
            if each.role == "push button":
                key = next((name for name, text in QUESTIONS.items() if each.name.startswith(text)), key)
            elif each.role == "check box" and each.name in ("Oui", "Non"):
                found.setdefault(key, {})[each.name] = each
        return found

    # The list

    def list_content(self):
        """The content of the popup, None while it is hidden."""
        if self.list is None:
            return None
        rows = []
        for each in self._table():
            if each.role == "check box":
                # The box is the first control of its row; rows come in the order of their creation, not of their position.
                rows.append((each.control.box.y, []))
            elif each.role == "label" and rows and each.name:
                rows[-1][1].append(each.name)
        ticks = [each for each in self.list.controls if each.role == "check box"]
        badge = next((each.name for each in self.list.controls if each.name.endswith(" en attente")
                      and each.role == "label"), "0")
        ticked = [(each.control.box.y, each.name[len(_TICK):]) for each in ticks
                  if each.name.startswith(_TICK) and "checked" in each.states]
        return {"waiting tab": "checked" in self.list.named("Patients en attente", "page tab").states,
                "rows": [texts for _, texts in sorted(rows)],
                "ticked": [name for _, name in sorted(ticked)],
                "all ticked": "checked" in next(each for each in ticks if each.name == "Tout sélectionner").states,
                "number": int(badge.split()[0])}
    def _table(self):
        """The controls of the list's rows."""
        start = next(index for index, each in enumerate(self.list.controls) if each.role == "list")
        return self.list.controls[start + 1:]


def look(root):
    """The current view, or None when a control vanished while it was read."""
    try:
        return View(root)
    except (tree.Vanished, StopIteration):
        return None
