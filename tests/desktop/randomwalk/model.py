"""What the windows must show and the database must hold during a random walk, written from the rules and independent of
the program. The date is a fixed day in May, far from the end of a month."""

import copy
import re

TODAY = "2014-05-12"
NEVER = "2050-05-12"
DATES = {"test": "test_date", "rdv1": "date1", "confirmation": "confirmation_date", "rdv2": "date2", "rdv3": "date3"}
STEPS = list(DATES)
_BLANK = {"genderMale": 1, "name": "", "phone": "", "created": "", "notification_date": "",
          **{key: 0 for key in STEPS}, **{date: "" for date in DATES.values()}}


def french(date):
    """DD/MM/YYYY of YYYY-MM-DD."""
    return "/".join(reversed(date.split("-"))) if date else ""


def new_row(**columns):
    """A row of the table with these columns."""
    return {**_BLANK, **columns}


def answers_of(row):
    """The answers in a row, by step."""
    return {key: "Oui" if row[key] else "Non" for key in STEPS if row[DATES[key]]}


def waits(row):
    """Whether the patient is waiting."""
    return row["notification_date"] != "" and row["notification_date"] <= TODAY


def by_name(rows):
    """The ids of rows in the order of their names, ignoring case."""
    return sorted(rows, key=lambda number: _folded(rows[number]["name"]))


def cells(row):
    """The non-empty texts of a row of the list."""
    given = answers_of(row)
    test = given.get("test", "?")
    rdv1 = given.get("rdv1") or ("" if test == "?" else "-" if test == "Oui" else "?")
    confirmation = given.get("confirmation") or ("?" if rdv1 in ("Oui", "-") else "")
    rdv2 = given.get("rdv2") or ("?" if confirmation == "Oui" else "")
    rdv3 = given.get("rdv3") or ("?" if rdv2 == "Oui" else "")
    texts = [row["name"], french(row["created"]), test, rdv1, confirmation, rdv2, rdv3, row["phone"]]
    return [text for text in texts if text]


def _folded(text):
    """Lower case as the database compares: only the letters A to Z."""
    return re.sub("[A-Z]", lambda letter: letter.group().lower(), text)


def _like(text, pattern):
    """Matches like LIKE in the database."""
    parts = {"%": ".*", "_": "."}
    expression = "".join(parts.get(character) or re.escape(character) for character in _folded(pattern))
    return re.fullmatch(expression, _folded(text), re.DOTALL) is not None


def reminder_after(key, answer, created):
    """The reminder that an answer sets; `created` is the date of the first appointment."""
    year, month = int(created[:4]), int(created[5:7])
    season_end = f"{year}-09-15" if 3 <= month <= 8 else f"{year}-12-15" if month >= 9 else TODAY
    return {("test", "Oui"): season_end, ("test", "Non"): season_end,
            ("rdv1", "Oui"): NEVER, ("rdv1", "Non"): season_end,
            ("confirmation", "Oui"): f"{year}-12-16", ("confirmation", "Non"): NEVER,
            ("rdv2", "Oui"): f"{year + 1}-09-15", ("rdv2", "Non"): f"{year}-12-16",
            ("rdv3", "Oui"): NEVER, ("rdv3", "Non"): f"{year + 1}-09-15"}[key, answer]


class Editor:
    """The form: `number` is the patient's id, None for a new patient; `alive` is whether the form is enabled."""

    def __init__(self, number, row, alive=True):
        self.number, self.alive = number, alive
        # Whether the fields were changed since they were loaded or stored.
        self.buttons = False
        self.show(row)

    def show(self, row):
        """Shows a stored row."""
        self.name, self.male, self.phone = row["name"], bool(row["genderMale"]), row["phone"]
        self.first_day = row["created"] or TODAY
        self.reminder = row["notification_date"]
        self.dates = {key: row[DATES[key]] for key in STEPS}
        self.answers = answers_of(row)


class PatientList:
    """The popup: `rows` are the rows it loaded last, copied, by id."""

    def __init__(self):
        self.shown, self.waiting_tab, self.tick_all = False, True, False
        self.rows, self.ticked, self.number = {}, set(), 0


class Model:
    """The database rows by id in `rows`, and the windows. Only the rules determine the effects of actions."""

    def __init__(self, rows):
        self.rows = {number: dict(row) for number, row in enumerate(rows, 1)}
        self._last_number = len(rows)
        self.search, self.results, self.waiting = "", [], 0
        self.editor = None
        # The possible states of gates 1 and 2 (open or not). An answer for a deleted patient can leave either state.
        self.gate_states = [(True, True)]
        # The question that has just expanded, None if unknown.
        self.unfolded = None
        self.list = PatientList()
        self._refresh()

    # What the windows show

    @property
    def gate1_open(self):
        """Whether gate 1 is open."""
        return self.gate_states[0][0]

    @property
    def gate2_open(self):
        """Whether gate 2 is open."""
        return self.gate_states[0][1]

    def asked(self):
        """The visible questions, each with its answer or ""."""
        editor = self.editor
        if editor is None or editor.number is None or editor.buttons:
            return {}
        given = editor.answers
        shown = {"test": given.get("test", "")}
        if shown["test"] == "Non":
            shown["rdv1"] = given.get("rdv1", "")
        if self.gate1_open and (shown.get("rdv1") == "Oui" or shown["test"] == "Oui"):
            shown["confirmation"] = given.get("confirmation", "")
        if shown.get("confirmation") == "Oui":
            shown["rdv2"] = given.get("rdv2", "")
        if self.gate2_open and shown.get("rdv2") == "Oui":
            shown["rdv3"] = given.get("rdv3", "")
        return shown

    def gates(self):
        """The visible closed gates."""
        editor = self.editor
        if editor is None or editor.number is None or editor.buttons:
            return []
        given = editor.answers
        return [number for number, closed, key in ((1, not self.gate1_open, "rdv1"), (2, not self.gate2_open, "rdv2"))
                if closed and given.get(key) == "Oui"]

    def found(self):
        """The names in the result list."""
        return [name for _, name in self.results]

    def list_rows(self):
        """The texts of the list's rows."""
        return [cells(self.list.rows[number]) for number in by_name(self.list.rows)]

    def list_ticks(self):
        """The ticked names in the list."""
        return [self.list.rows[number]["name"] for number in by_name(self.list.rows) if number in self.list.ticked]

    # Actions of the user in the widget

    def type_search(self, text):
        """Another text in the search field."""
        self.search = text
        ordered = [(number, self.rows[number]["name"]) for number in by_name(self.rows)]
        starting = [each for each in ordered if _like(each[1], text + "%")]
        inside = [each for each in ordered if _like(each[1], "%" + text + "%") and each not in starting]
        self.results = starting + inside if text else []

    def open_new(self):
        """The link that creates a patient."""
        self.editor = Editor(None, new_row(name=self.search))
        self.editor.buttons = self.search != ""
        self.unfolded = None

    def open(self, number):
        """Opens the patient with that id, who may have been deleted."""
        self.unfolded = None
        before = self.editor
        # For a deleted patient the form keeps its content and is disabled.
        alive = number in self.rows
        self.editor = Editor(number, self.rows[number] if alive else self._as_shown(), alive)
        self.editor.buttons = before.buttons if before else False

    def leave(self):
        """Back to the search."""
        self.editor = None
        self.search, self.results = "", []

    def change(self, field, value):
        """Changes the name, gender ("male") or phone in the form."""
        if getattr(self.editor, field) != value:
            setattr(self.editor, field, value)
            self.editor.buttons = True

    def cancel(self):
        """"Annuler"."""
        if self.editor.number is None:
            self.leave()
        else:
            self._reload()

    def validate(self):
        """The button beside it."""
        editor = self.editor
        if editor.number is not None and editor.name == "":
            self.rows.pop(editor.number, None)
            self._refresh()
            self.leave()
        elif editor.number is None:
            self._last_number += 1
            editor.number, editor.buttons = self._last_number, False
            self.rows[editor.number] = new_row(name=editor.name, genderMale=int(editor.male), phone=editor.phone,
                                               created=editor.first_day, notification_date=TODAY)
            self._refresh()
        else:
            self._store(editor.reminder)

    def answer(self, key, answer):
        """Answers a visible question; a ticked answer changes nothing."""
        editor = self.editor
        if not editor.alive or editor.answers.get(key) == answer:
            return
        before = self.asked()
        place = STEPS.index(key)
        for later in STEPS[place + 1:]:
            editor.dates[later] = ""
            editor.answers.pop(later, None)
        editor.answers[key], editor.dates[key] = answer, TODAY
        if editor.number not in self.rows:
            self.gate_states = [(True, True), (True, False), (False, True), (False, False)]
        elif key in ("test", "rdv1"):
            self.gate_states = [(key == "test" and answer == "Oui", False)]
        elif key in ("confirmation", "rdv2"):
            self._move_gates(second=False)
        self._store(reminder_after(key, answer, editor.first_day))
        self._unfold_what_is_new(before)

    def open_gate(self, number):
        """Presses a closed gate."""
        before = self.asked()
        self._move_gates(**{"first" if number == 1 else "second": True})
        self._unfold_what_is_new(before)

    # Actions of the user in the list

    def show_tab(self, waiting):
        """One of the two tabs."""
        if waiting != self.list.waiting_tab:
            self.list.waiting_tab = waiting
            self._load_list()

    def tick(self, number):
        """The box of a row."""
        self.list.ticked ^= {number}

    def tick_everyone(self):
        """The box in the header."""
        self.list.tick_all = not self.list.tick_all
        self.list.ticked = set(self.list.rows) if self.list.tick_all else set()

    def delete_ticked(self):
        """The delete button."""
        gone = set(self.list.ticked)
        for number in gone:
            self.rows.pop(number, None)
        self._refresh()
        self.results = [each for each in self.results if each[0] not in gone]
        if self.editor and self.editor.number in gone:
            self.leave()

    # Actions of another process

    def insert_elsewhere(self, **columns):
        """Another process stores a patient; returns the id."""
        self._last_number += 1
        self.rows[self._last_number] = new_row(**columns)
        return self._last_number

    def change_elsewhere(self, number, **columns):
        """Another process changes a row."""
        self.rows[number].update(columns)

    def delete_elsewhere(self, number):
        """Another process deletes a row."""
        del self.rows[number]

    # Consequences

    def _move_gates(self, first=None, second=None):
        self.gate_states = sorted({(gate1 if first is None else first, gate2 if second is None else second)
                                   for gate1, gate2 in self.gate_states})

    def _as_shown(self):
        editor = self.editor
        if editor is None:
            return new_row()
        row = new_row(name=editor.name, genderMale=int(editor.male), phone=editor.phone, created=editor.first_day,
                      notification_date=editor.reminder)
        for key in STEPS:
            row[key], row[DATES[key]] = int(editor.answers.get(key) == "Oui"), editor.dates[key]
        return row

    def _store(self, reminder):
        editor = self.editor
        stored = self.rows.get(editor.number)
        if stored is not None:
            shown = self._as_shown()
            stored.update({column: shown[column] for column in shown if column != "created"},
                          notification_date=reminder)
        self._reload(after_save=True)
        self._refresh()

    def _reload(self, after_save=False):
        editor = self.editor
        editor.buttons = False
        self.unfolded = None
        if editor.number in self.rows:
            editor.show(self.rows[editor.number])
        else:
            editor.alive = False
            if after_save:
                editor.answers = {}

    def _unfold_what_is_new(self, before):
        new = [key for key in self.asked() if key not in before and key != "test"]
        self.unfolded = new[-1] if new and self.editor and self.editor.alive else None

    def _refresh(self):
        self.waiting = self.list.number = sum(map(waits, self.rows.values()))
        self._load_list()

    def _load_list(self):
        chosen = {number: row for number, row in self.rows.items() if waits(row) or not self.list.waiting_tab}
        self.list.rows = copy.deepcopy(chosen)
        self.list.ticked = set(chosen) if self.list.tick_all else set()
