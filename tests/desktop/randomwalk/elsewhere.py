"""Changes of the database by another process."""

import sqlite3
import threading
import time

from .model import TODAY

MOST_PATIENTS = 8
_SHORT_LOCK_SECONDS = 0.3


class Elsewhere:
    """Part of a walk, which has `_store`, `_model`, `_random`, `_new_name`, `_say` and `counts`."""

    def _happens_elsewhere(self):
        self.counts["elsewhere"] += 1
        model, draw = self._model, self._random
        what = draw.choice(("insert", "change", "change", "delete"))
        if what == "insert" and len(model.rows) < MOST_PATIENTS or not model.rows:
            columns = {"name": self._new_name(), "created": "2014-03-03", "notification_date": TODAY}
            number = model.insert_elsewhere(**columns)
            self._say(f"elsewhere: insert {number} {columns['name']}")
            row = model.rows[number]
            self._elsewhere(f"INSERT INTO Patients (id, {', '.join(row)}) VALUES (?{', ?' * len(row)})",
                            [number, *row.values()])
            return
        number = draw.choice(sorted(model.rows))
        if what == "delete" and len(model.rows) > 2:
            self._say(f"elsewhere: delete {number}")
            self._elsewhere("DELETE FROM Patients WHERE id = ?", [number])
            model.delete_elsewhere(number)
            return
        columns = draw.choice(({"phone": "01" + str(draw.randrange(100, 999))}, {"name": self._new_name()},
                               {"notification_date": draw.choice((TODAY, "", "2014-05-13"))},
                               {"test": 1, "test_date": "2014-05-02", "rdv1": 0, "date1": ""},
                               {"rdv1": 1, "date1": "2014-05-03"}))
        self._say(f"elsewhere: {number} gets {columns}")
        self._elsewhere(f"UPDATE Patients SET {', '.join(column + ' = ?' for column in columns)} WHERE id = ?",
                        [*columns.values(), number])
        model.change_elsewhere(number, **columns)

    def _elsewhere(self, statement, values):
        other = sqlite3.connect(self._store.file, timeout=5)
        try:
            with other:
                other.execute(statement, values)
        finally:
            other.close()

    def _lock_for_a_moment(self):
        """Another process locks the file for a shorter time than the program waits."""
        self._say("behind a short lock:")
        self.counts["short locks"] += 1
        held = threading.Event()
        kind = self._random.choice((self._store.lock, self._store.read_lock))

        def hold():
            other = kind()
            held.set()
            time.sleep(_SHORT_LOCK_SECONDS)
            other.close()

        thread = threading.Thread(target=hold, daemon=True)
        thread.start()
        held.wait()
        return thread
