"""What the window has confirmed, recorded outside the program. After a crash the database must hold exactly that, and either
all or none of the save in progress."""

TODAY = "2014-05-12"
CLOCK = TODAY + " 10:00:00"
DATES = {"test": "test_date", "rdv1": "date1", "confirmation": "confirmation_date", "rdv2": "date2", "rdv3": "date3"}
# The question that follows each answer; the other answers are the last ones.
NEXT = {("test", "Oui"): "confirmation", ("test", "Non"): "rdv1", ("rdv1", "Oui"): "confirmation",
        ("confirmation", "Oui"): "rdv2", ("rdv2", "Oui"): "rdv3"}
# The reminder that an answer sets for a patient created on that day.
REMINDERS = {("test", "Oui"): "2014-09-15", ("test", "Non"): "2014-09-15",
             ("rdv1", "Oui"): "2050-05-12", ("rdv1", "Non"): "2014-09-15",
             ("confirmation", "Oui"): "2014-12-16", ("confirmation", "Non"): "2050-05-12",
             ("rdv2", "Oui"): "2015-09-15", ("rdv2", "Non"): "2014-12-16",
             ("rdv3", "Oui"): "2050-05-12", ("rdv3", "Non"): "2015-09-15"}


class Lost(Exception):
    """The database does not hold what it must."""


class State:
    """A patient's stored state: the answers, in order, and the reminder."""

    def __init__(self, answers=None, reminder=TODAY):
        self.answers = answers or {}
        self.reminder = reminder

    def __eq__(self, other):
        return isinstance(other, State) and vars(self) == vars(other)

    def __repr__(self):
        return f"{self.answers} reminder {self.reminder}"

    def answered(self, key, answer):
        """The state after an answer, which clears the later ones."""
        kept = {}
        for earlier, given in self.answers.items():
            if earlier == key:
                break
            kept[earlier] = given
        return State({**kept, key: answer}, REMINDERS[key, answer])

    def asked(self):
        """The questions that a window with open gates shows, each with its answer or ""."""
        shown, key = {}, "test"
        while key:
            shown[key] = self.answers.get(key, "")
            key = NEXT.get((key, shown[key]))
        return shown

    @staticmethod
    def of_row(row):
        """The state of a row of the database; raises Lost when the trials cannot have produced it."""
        fixed = [row[column] for column in ("genderMale", "phone", "created")]
        dates = [row[column] for column in DATES.values()]
        if fixed != [1, "", TODAY] or not set(dates) <= {"", TODAY}:
            raise Lost(f"a row that no trial wrote: {row}")
        answers = {key: "Oui" if row[key] else "Non" for key, date in DATES.items() if row[date]}
        return State(answers, row["notification_date"])


class Confirmed:
    """The patients of one home by name. `pending` is the name of the patient whose save is in progress."""

    def __init__(self):
        self.patients = {}
        self.pending = None
        self._outcomes = []

    @property
    def waiting(self):
        """The number of waiting patients."""
        return sum(state.reminder <= TODAY for state in self.patients.values())

    def begin(self, name, outcome, between=None):
        """Announces a press that will store `outcome`; `between` is an intermediate state that is stored first."""
        self.pending = name
        self._outcomes = [outcome] + ([between] if between else [])

    def confirm(self):
        """Confirms the pending change: the window shows it."""
        self.patients[self.pending] = self._outcomes[0]
        self.pending = None

    def settle(self, rows):
        """Compares with the rows after a crash, takes them over and returns the result of the pending change: "none",
        "stored", "on the way" or "not stored"."""
        found = {}
        for row in rows:
            if row["name"] in found:
                raise Lost(f"{row['name']} is stored twice")
            found[row["name"]] = State.of_row(row)
        fate = self._fate(found)
        if found != self.patients:
            raise Lost(f"confirmed: {self.patients}\nstored: {found}")
        return fate

    def _fate(self, found):
        """The result of the pending change; its stored state counts as confirmed from then on."""
        name, self.pending = self.pending, None
        if name is None:
            return "none"
        state = found.get(name)
        if state not in self._outcomes:
            return "not stored"
        self.patients[name] = state
        return "stored" if state == self._outcomes[0] else "on the way"
