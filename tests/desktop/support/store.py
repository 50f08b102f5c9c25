"""The program's patient database as a second reader, and as the one who fills it before a start."""

import configparser
import hashlib
import os
import sqlite3

_NAME = hashlib.md5(b"Tandry").hexdigest()
# The layout as it stands in existing installations, written down here on its own.
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
        """Changes the database as another process does."""
        with sqlite3.connect(self.file, timeout=5) as database:
            database.execute(statement)
        database.close()

    def lose_record(self):
        """Takes the version record away."""
        os.remove(self._record)

    def make_folder(self):
        """Creates the folders down to the database's."""
        os.makedirs(self.folder, mode=0o700, exist_ok=True)

    def write_version(self, version):
        """Records a version beside the data, as the local storage does."""
        with open(self._record, "w", encoding="utf-8") as file:
            file.write("[General]\nDescription=Tandry widget storage\nDriver=QSQLITE\nEstimatedSize=500000\n"
                       f"Name=Tandry\nVersion={version}\n")

    def version(self):
        """The version on record."""
        reader = configparser.ConfigParser(interpolation=None)
        reader.read(self._record, encoding="utf-8")
        return reader.get("General", "Version", fallback=None)

    def patients(self):
        """Every row, in the order of its id, as dictionaries; empty while there is no table."""
        if not os.path.exists(self.file):
            return []
        try:
            return self._query("SELECT * FROM `Patients` ORDER BY id")
        except sqlite3.OperationalError:
            return []

    def copies(self):
        """The names of the copies, in their order."""
        return sorted(os.listdir(self.copies_folder)) if os.path.isdir(self.copies_folder) else []

    def copied_files(self):
        """The databases of all copies."""
        return [os.path.join(self.copies_folder, name, _NAME + ".sqlite") for name in self.copies()]

    def copied_names(self, copy):
        """The names of the patients in a copy."""
        with sqlite3.connect(os.path.join(self.copies_folder, copy, _NAME + ".sqlite")) as database:
            return [name for name, in database.execute("SELECT name FROM `Patients` ORDER BY id")]

    def patient(self, name):
        """The one row with this name, or None."""
        rows = [row for row in self.patients() if row["name"] == name]
        assert len(rows) <= 1, f"{len(rows)} patients are called {name!r}"
        return rows[0] if rows else None

    def lock(self):
        """Another process's hold on the file: nobody else may read or write until the connection is closed."""
        other = sqlite3.connect(self.file, isolation_level=None)
        other.execute("PRAGMA locking_mode = EXCLUSIVE")
        other.execute("BEGIN EXCLUSIVE")
        return other

    def read_lock(self):
        """Another process in the middle of a read: nobody may commit until the connection is closed."""
        other = sqlite3.connect(self.file, isolation_level=None)
        other.execute("BEGIN")
        other.execute("SELECT * FROM `Patients`").fetchall()
        return other

    def write_lock(self, statement):
        """Another process in the middle of a write, with `statement` done and not committed: nobody else may write."""
        other = sqlite3.connect(self.file, isolation_level=None)
        other.execute("BEGIN IMMEDIATE")
        other.execute(statement)
        return other

    def _query(self, statement):
        # Only looking: neither this reader nor a journal it might make may get in the program's way.
        database = sqlite3.connect(f"file:{self.file}?mode=ro", uri=True, timeout=5)
        try:
            database.row_factory = sqlite3.Row
            return [dict(row) for row in database.execute(statement)]
        finally:
            database.close()
