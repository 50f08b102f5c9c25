"""The program's patient database: reads it beside the program, and fills it before a start."""

import configparser
import hashlib
import os
import sqlite3

_NAME = hashlib.md5(b"Tandry").hexdigest()
# The table of existing installations, written independently of the program.
_TABLE = """CREATE TABLE `Patients`(`id` INTEGER PRIMARY KEY AUTOINCREMENT,`genderMale` tinyint(1) NOT NULL DEFAULT "0",
`name` TEXT COLLATE NOCASE NOT NULL,`phone` TEXT DEFAULT "",`created` date,`test` tinyint(1) DEFAULT 0,
`test_date` date DEFAULT "",`rdv1` tinyint(1) DEFAULT 0,`date1` date DEFAULT "",`confirmation` tinyint(1) DEFAULT 0,
`confirmation_date` date DEFAULT "",`rdv2` tinyint(1) DEFAULT 0,`date2` date DEFAULT "",`rdv3` tinyint(1) DEFAULT 0,
`date3` date DEFAULT "",`notification_date` date DEFAULT "")"""


class Store:
    """The database of a program called `program` in the home whose data folder is `data`, or a copy of it in `folder`."""

    def __init__(self, data, program, folder=None):
        self.folder = folder or os.path.join(data, program, "QML", "OfflineStorage", "Databases")
        self.file = os.path.join(self.folder, _NAME + ".sqlite")
        self._record = os.path.join(self.folder, _NAME + ".ini")
        self.copies_folder = os.path.join(data, program, "copies")

    def seed(self, *patients, version="1.3"):
        """Creates the database with these patients, each a dictionary of columns, at a recorded version."""
        self.make_folder()
        with sqlite3.connect(self.file) as database:
            database.execute(_TABLE)
            for patient in patients:
                columns = ", ".join(f"`{column}`" for column in patient)
                database.execute(f"INSERT INTO `Patients` ({columns}) VALUES ({', '.join('?' * len(patient))})",
                                 list(patient.values()))
        database.close()
        self.write_version(version)

    def execute(self, statement):
        """Changes the database as another process."""
        with sqlite3.connect(self.file, timeout=5) as database:
            database.execute(statement)
        database.close()

    def lose_record(self):
        """Deletes the version record."""
        os.remove(self._record)

    def make_folder(self):
        """Creates the database's folder and its parents."""
        os.makedirs(self.folder, mode=0o700, exist_ok=True)

    def write_version(self, version):
        """Writes the version record like the local storage module."""
        with open(self._record, "w", encoding="utf-8") as file:
            file.write("[General]\nDescription=Tandry widget storage\nDriver=QSQLITE\nEstimatedSize=500000\n"
                       f"Name=Tandry\nVersion={version}\n")

    def version(self):
        """The recorded version."""
        reader = configparser.ConfigParser(interpolation=None)
        reader.read(self._record, encoding="utf-8")
        return reader.get("General", "Version", fallback=None)

    def patients(self):
        """All rows as dictionaries, in the order of their ids; empty while there is no table."""
        if not os.path.exists(self.file):
            return []
        try:
            return self._query("SELECT * FROM `Patients` ORDER BY id")
        except sqlite3.OperationalError:
            return []

    def copies(self):
        """The names of the copies in order."""
        return sorted(os.listdir(self.copies_folder)) if os.path.isdir(self.copies_folder) else []

    def copied_files(self):
        """The databases of all copies."""
        return [os.path.join(self.copies_folder, name, _NAME + ".sqlite") for name in self.copies()]

    def copied_names(self, copy):
        """The names of the patients in a copy."""
        with sqlite3.connect(os.path.join(self.copies_folder, copy, _NAME + ".sqlite")) as database:
            return [name for name, in database.execute("SELECT name FROM `Patients` ORDER BY id")]

    def patient(self, name):
        """The only row with this name, or None."""
        rows = [row for row in self.patients() if row["name"] == name]
        assert len(rows) <= 1, f"{len(rows)} patients are called {name!r}"
        return rows[0] if rows else None

    def lock(self):
        """Another process locks the file exclusively: others can neither read nor write until the connection is closed."""
        other = sqlite3.connect(self.file, isolation_level=None)
        other.execute("PRAGMA locking_mode = EXCLUSIVE")
        other.execute("BEGIN EXCLUSIVE")
        return other

    def read_lock(self):
        """Another process reads: others cannot commit until the connection is closed."""
        other = sqlite3.connect(self.file, isolation_level=None)
        other.execute("BEGIN")
        other.execute("SELECT * FROM `Patients`").fetchall()
        return other

    def write_lock(self, statement):
        """Another process has run `statement` and not committed: others cannot write."""
        other = sqlite3.connect(self.file, isolation_level=None)
        other.execute("BEGIN IMMEDIATE")
        other.execute(statement)
        return other

    def _query(self, statement):
        # Read-only: neither this reader nor a journal may disturb the program.
        database = sqlite3.connect(f"file:{self.file}?mode=ro", uri=True, timeout=5)
        try:
            database.row_factory = sqlite3.Row
            return [dict(row) for row in database.execute(statement)]
        finally:
            database.close()
